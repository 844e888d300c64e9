# A room is one folder, one static library and the list of rooms it may open. What is not listed here cannot be
# included, because the include path of a room reaches only what it links.

# Flags and definitions that every target shares; a precompiled header is only reused between equal flags.
add_library(ardeno_options INTERFACE)
target_compile_features(ardeno_options INTERFACE cxx_std_20)
target_compile_options(ardeno_options INTERFACE -Wall -Wextra -Wnon-virtual-dtor
    $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>) # Files built together do not mind each other's names.
# GLib's headers use "signals" and "slots" as names.
target_compile_definitions(ardeno_options INTERFACE QT_NO_KEYWORDS)
target_link_libraries(ardeno_options INTERFACE Qt6::Core)

add_library(ardeno_precompiled OBJECT "${CMAKE_CURRENT_LIST_DIR}/precompiled.cpp")
target_link_libraries(ardeno_precompiled PRIVATE ardeno_options)
target_precompile_headers(ardeno_precompiled PRIVATE
    <QtCore/QtCore> <algorithm> <functional> <memory> <optional> <string> <tuple> <variant> <vector>)

function(ardeno_prepare target)
    target_link_libraries(${target} PUBLIC ardeno_options)
    target_precompile_headers(${target} REUSE_FROM ardeno_precompiled)
    # Headers are included as "room/File.h".
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
endfunction()

# ardeno_room(NAME LINKS TARGET…): the library of the folder it stands in, with every source below that folder but those
# of the rooms in it.
function(ardeno_room name)
    cmake_parse_arguments(room "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    file(GLOB_RECURSE inner "${CMAKE_CURRENT_SOURCE_DIR}/*/CMakeLists.txt")
    foreach(room IN LISTS inner)
        string(REGEX REPLACE "CMakeLists.txt$" "" folder "${room}")
        list(FILTER sources EXCLUDE REGEX "^${folder}")
    endforeach()
    if(sources)
        add_library(ardeno_${name} STATIC ${sources})
        ardeno_prepare(ardeno_${name})
        target_link_libraries(ardeno_${name} PUBLIC ${room_LINKS} PRIVATE ${room_PRIVATE_LINKS})
    else()
        add_library(ardeno_${name} INTERFACE)
        target_link_libraries(ardeno_${name} INTERFACE ardeno_options ${room_LINKS})
        target_include_directories(ardeno_${name} INTERFACE "${PROJECT_SOURCE_DIR}")
    endif()
endfunction()

find_program(CCACHE ccache)
if(CCACHE)
    # GCC's dependency output only names what a precompiled header pulled in with -fpch-preprocess.
    target_compile_options(ardeno_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()
