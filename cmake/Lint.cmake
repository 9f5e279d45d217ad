# lint: clang-tidy over our sources but the tests and fuzz targets, as many at a time as there are cores; any
# finding fails it. clang cannot read the precompiled headers of another compiler, so the commands are made without.
find_program(VTR_RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-14)
if(VTR_RUN_CLANG_TIDY)
    add_custom_target(lint
        COMMAND ${CMAKE_COMMAND} -S ${CMAKE_SOURCE_DIR} -B ${CMAKE_BINARY_DIR}/lint -G ${CMAKE_GENERATOR}
                -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
        COMMAND ${VTR_RUN_CLANG_TIDY} -quiet -extra-arg=-Wno-unknown-warning-option -p ${CMAKE_BINARY_DIR}/lint
                "^${CMAKE_SOURCE_DIR}/(src|sample|data|bench)/"
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        USES_TERMINAL
        VERBATIM)
endif()
