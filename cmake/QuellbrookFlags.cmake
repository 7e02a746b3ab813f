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

# What users run is hardened: a fault that slips through ends the program instead of serving somebody else. Flags that
# the processor or the compiler does not know are left out, all of them where sanitizers look for themselves. A
# builder's own _FORTIFY_SOURCE gives way without a warning.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(quellbrook_released "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
if(QUELLBROOK_SANITIZERS)
    set(quellbrook_released 0)
endif()
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "QUELLBROOK_HAS${flag}" known)
    check_cxx_compiler_flag("${flag}" ${known})
    if(${known})
        target_compile_options(quellbrook_flags INTERFACE "$<${quellbrook_released}:${flag}>")
    endif()
endforeach()
# What the guards cost, the compiler gets back by inlining functions that nobody outside may replace.
target_compile_options(quellbrook_flags INTERFACE
    "$<${quellbrook_released}:-fvisibility=hidden;-fvisibility-inlines-hidden>")
target_compile_options(quellbrook_flags INTERFACE "$<${quellbrook_released}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")

# Programs alone: a library's link options would become its users'.
add_library(quellbrook_program_flags INTERFACE)
target_link_libraries(quellbrook_program_flags INTERFACE quellbrook_flags)
target_link_options(quellbrook_program_flags INTERFACE
    "$<${quellbrook_released}:LINKER:-z,relro,-z,now,-z,noexecstack>")

if(QUELLBROOK_SANITIZERS)
    target_compile_options(quellbrook_flags INTERFACE
        -fsanitize=${QUELLBROOK_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quellbrook_flags INTERFACE -fsanitize=${QUELLBROOK_SANITIZERS})
endif()

if(QUELLBROOK_BUILD_FUZZERS)
    target_compile_options(quellbrook_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
