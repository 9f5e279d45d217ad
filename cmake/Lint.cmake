# lint: clang-tidy over our sources but the tests and fuzz targets, as many at a time as there are cores; any
# finding fails it.
find_program(VTR_RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-14)
if(VTR_RUN_CLANG_TIDY)
    add_custom_target(lint
        COMMAND ${VTR_RUN_CLANG_TIDY} -quiet -extra-arg=-Wno-unknown-warning-option -p ${CMAKE_BINARY_DIR}
                "^${CMAKE_SOURCE_DIR}/(src|sample|data|bench)/"
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        USES_TERMINAL
        VERBATIM)
endif()
