# vtr_build_settings: warnings as errors, sanitizers and the fast linker, for every target of ours.
add_library(vtr_build_settings INTERFACE)
target_compile_options(vtr_build_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees overlapping copies in `"text" + std::string` (its bug 105651).
    target_compile_options(vtr_build_settings INTERFACE -Wno-restrict)
endif()

if(VTR_SANITIZE)
    target_compile_options(vtr_build_settings INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vtr_build_settings INTERFACE -fsanitize=address,undefined)
    target_compile_definitions(vtr_build_settings INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(VTR_FUZZ)
    target_compile_options(vtr_build_settings INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
endif()

find_program(VTR_MOLD mold)
if(VTR_MOLD)
    target_link_options(vtr_build_settings INTERFACE -fuse-ld=mold)
endif()

find_program(VTR_CCACHE ccache)
if(VTR_CCACHE)
    # With its defaults ccache passes over everything that uses a precompiled header.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${VTR_CCACHE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(vtr_build_settings INTERFACE -fpch-preprocess)
    endif()
endif()

# Where many sources are compiled as one, precompiled headers cost more than they save.
# -Wshadow would count what stands in another source's unnamed namespace.
if(VTR_UNITY)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
    target_compile_options(vtr_build_settings INTERFACE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>)
endif()
# What is generated depends on no library, so it need not wait for them.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)

# vtr_unity(TARGET): compiles its sources many at a time, where that is asked for.
function(vtr_unity target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${VTR_UNITY} UNITY_BUILD_BATCH_SIZE 16)
endfunction()

# vtr_library(NAME LINKED...): a static library of all sources of the calling folder. Its headers are seen
# by those that link it, and by nobody else: that is what keeps the arrows between the folders one-way.
function(vtr_library name)
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(${name} STATIC ${sources})
    vtr_unity(${name})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE vtr_build_settings)
endfunction()
