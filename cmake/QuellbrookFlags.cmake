# What every one of our targets is compiled with. Targets of others see none of it.
add_library(quellbrook_flags INTERFACE)

target_compile_features(quellbrook_flags INTERFACE cxx_std_20)
target_compile_definitions(quellbrook_flags INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_STRICT_ITERATORS
    QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(quellbrook_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wnull-dereference
    # Answers must be the ones that IEEE 754 gives, on every processor.
    -ffp-contract=off
    # Without it ccache cannot use a precompiled header of gcc's.
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
    $<$<BOOL:${QUELLBROOK_WARNINGS_AS_ERRORS}>:-Werror>)

if(QUELLBROOK_SANITIZERS)
    target_compile_options(quellbrook_flags INTERFACE
        -fsanitize=${QUELLBROOK_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quellbrook_flags INTERFACE -fsanitize=${QUELLBROOK_SANITIZERS})
endif()

if(QUELLBROOK_BUILD_FUZZERS)
    target_compile_options(quellbrook_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
