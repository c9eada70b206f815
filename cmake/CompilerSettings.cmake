# SPDX-License-Identifier: Apache-2.0
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
        # Without these, ccache does not cache sources that use precompiled headers.
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
            CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
    endif()
endif()

# Compile settings of all targets of this project. They are not exported to a host. ccache needs
# -fpch-preprocess for sources that use precompiled headers.
add_library(velmora_settings INTERFACE)
target_compile_definitions(velmora_settings INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_STRICT_ITERATORS)
target_compile_options(velmora_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    $<$<BOOL:${VELMORA_WARNINGS_AS_ERRORS}>:-Werror>
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# Compile settings of the library itself. A host is better served by a small library: what has to be
# fast is done by Qt, or is compiled with velmora_optimise_for_speed(). Not where faults are looked for:
# with a section for each function the thread sanitizer does not find the names of inlined ones.
add_library(velmora_library_settings INTERFACE)
target_compile_options(velmora_library_settings INTERFACE
    "$<$<NOT:$<CONFIG:Debug>>:-Os;-ffunction-sections;-fdata-sections>")
# "Fat" objects have machine code as well, which the tests link.
set(velmora_link_time "")
if(VELMORA_LINK_TIME_OPTIMISATION)
    set(velmora_link_time -flto=auto)
    target_compile_options(velmora_library_settings INTERFACE -flto=auto -ffat-lto-objects)
endif()

# Relative relocations in their packed form take a tenth of the space. The C library must know it.
set(velmora_packed_relocations "")
if(NOT APPLE)
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_LINK_OPTIONS LINKER:-z,pack-relative-relocs LINKER:--fatal-warnings)
    check_cxx_source_compiles("#include <features.h>
        static_assert(__GLIBC_PREREQ(2, 36));
        int main() {}" VELMORA_HAS_PACKED_RELOCATIONS)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
    if(VELMORA_HAS_PACKED_RELOCATIONS)
        set(velmora_packed_relocations LINKER:-z,pack-relative-relocs)
    endif()
endif()

# velmora_optimise_for_speed(source...): for the few sources whose own loops take a host's time. They
# cannot use a precompiled header that was compiled for size.
function(velmora_optimise_for_speed)
    set_source_files_properties(${ARGN} PROPERTIES
        SKIP_PRECOMPILE_HEADERS ON COMPILE_OPTIONS $<$<NOT:$<CONFIG:Debug>>:-O2>)
endfunction()

# For targets outside the library, such as tests and demo: the public headers, and includes that
# start at the project's root.
add_library(velmora_project_includes INTERFACE)
target_include_directories(velmora_project_includes INTERFACE
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

# velmora_add_objects(name [WIDGETS] SOURCES ... [HEADERS ...] LINK ...)
#
# Adds an object library, one layer of the library. Its sources can include the headers in its own
# folder, the public headers listed after HEADERS, and those of the targets that it links. So an
# include of a header from a higher layer does not compile. WIDGETS chooses the precompiled header
# with Qt Widgets.
function(velmora_add_objects name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;HEADERS;LINK" ${ARGN})
    add_library(${name} OBJECT ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC velmora_settings ${ARG_LINK}
        PRIVATE velmora_library_settings)
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    if(ARG_HEADERS)
        set(public_headers ${CMAKE_CURRENT_BINARY_DIR}/public)
        file(MAKE_DIRECTORY ${public_headers}/Velmora)
        foreach(header IN LISTS ARG_HEADERS)
            file(CREATE_LINK ${PROJECT_SOURCE_DIR}/include/Velmora/${header}
                ${public_headers}/Velmora/${header} SYMBOLIC)
        endforeach()
        target_include_directories(${name} PUBLIC ${public_headers})
    endif()
    target_compile_definitions(${name} PRIVATE
        $<IF:$<BOOL:${BUILD_SHARED_LIBS}>,VELMORA_BUILDING_LIBRARY,VELMORA_STATIC>)
    set(precompiled Pch.h)
    if(ARG_WIDGETS)
        set(precompiled PchWidgets.h)
    endif()
    target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/platform/core/${precompiled})
endfunction()
