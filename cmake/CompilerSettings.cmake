set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL)
    find_program(CCACHE_PROGRAM ccache)
    if(CCACHE_PROGRAM)
        # ccache refuses precompiled headers unless it is told to trust them.
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
            CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
    endif()
endif()

# Compile settings shared by all of our own targets; never exported to a host.
add_library(velmora_settings INTERFACE)
target_include_directories(velmora_settings INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
target_compile_definitions(velmora_settings INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_STRICT_ITERATORS)
target_compile_options(velmora_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    $<$<BOOL:${VELMORA_WARNINGS_AS_ERRORS}>:-Werror>
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# Adds one of the library's object targets with the shared settings and a precompiled header.
function(velmora_add_objects name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} OBJECT ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC velmora_settings ${ARG_LINK})
    target_compile_definitions(${name} PRIVATE VELMORA_BUILDING_LIBRARY)
endfunction()
