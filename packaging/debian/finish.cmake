# The last touches that Debian wants, in the tree that is about to be packed: pages and changes compressed, without a
# time in them, and the program without the notes that stripping leaves.
file(GLOB_RECURSE pages "${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/*.1")
file(GLOB changes "${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/*/changelog*")
execute_process(COMMAND gzip -9n ${pages} ${changes} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note
    "${CPACK_TEMPORARY_DIRECTORY}/usr/bin/quellbrook" COMMAND_ERROR_IS_FATAL ANY)
