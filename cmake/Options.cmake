# SPDX-License-Identifier: Apache-2.0
# As everywhere with CMake, BUILD_SHARED_LIBS decides whether the library is shared or static. Where a
# project that embeds Velmora does not set it, Velmora is shared. This is a normal variable, and so does
# not change what that project builds itself.
if(NOT DEFINED BUILD_SHARED_LIBS)
    set(BUILD_SHARED_LIBS ON)
endif()

# By default, a project that embeds Velmora builds the library only, and installs nothing of it.
option(VELMORA_INSTALL "Install the library, its headers and a CMake package" ${PROJECT_IS_TOP_LEVEL})
option(VELMORA_BUILD_ADSERVER "Build the development ad server" ${PROJECT_IS_TOP_LEVEL})
option(VELMORA_BUILD_DEMO "Build the demo host application" ${PROJECT_IS_TOP_LEVEL})
option(VELMORA_BUILD_BENCHMARKS "Build the benchmarks" ${PROJECT_IS_TOP_LEVEL})
option(VELMORA_BUILD_FUZZERS "Link the fuzz targets with libFuzzer; clang only" OFF)
# Off by default, so that only the presets make a library that trusts its environment.
option(VELMORA_DEVELOPER_BUILD
    "Let the environment replace deployment values, authorities and the video module" OFF)
# Makes the shared library a tenth smaller, and compiling and linking it slower. Not for the build types
# that developers use, and off where a project embeds Velmora, which decides about its own build.
set(optimise_at_link OFF)
if(PROJECT_IS_TOP_LEVEL AND BUILD_SHARED_LIBS AND CMAKE_BUILD_TYPE MATCHES "^(Release|MinSizeRel)$")
    set(optimise_at_link ON)
endif()
option(VELMORA_LINK_TIME_OPTIMISATION "Optimise the shared library as a whole" ${optimise_at_link})
option(VELMORA_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ${PROJECT_IS_TOP_LEVEL})

# AUTO builds the tests where everything that they need is installed; ON, which ./test sets, fails
# where it is not. So ./run, which needs less, and ./test can share a build folder.
set(build_tests AUTO)
if(NOT PROJECT_IS_TOP_LEVEL)
    set(build_tests OFF)
endif()
set(VELMORA_BUILD_TESTS ${build_tests} CACHE STRING "Build the tests: ON, OFF or AUTO")
set_property(CACHE VELMORA_BUILD_TESTS PROPERTY STRINGS AUTO ON OFF)

# AUTO builds the QML module where Qt Quick is installed and the library is shared.
set(build_qml AUTO)
if(NOT PROJECT_IS_TOP_LEVEL)
    set(build_qml OFF)
endif()
set(VELMORA_BUILD_QML ${build_qml} CACHE STRING "Build the QML module: ON, OFF or AUTO")
set_property(CACHE VELMORA_BUILD_QML PROPERTY STRINGS AUTO ON OFF)
set(VELMORA_INSTALL_QMLDIR ${CMAKE_INSTALL_LIBDIR}/qt6/qml CACHE STRING
    "Folder of QML modules that the module Velmora is installed into")

set(VELMORA_AD_SERVER_URL "https://ads.velmora.example" CACHE STRING
    "Base URL of the ad server, https, without a trailing slash")
set(VELMORA_STORE_HOST "apps.velmora-store.example" CACHE STRING
    "Host name of the app store's pages in the links that the framework builds itself")
set(VELMORA_STORE_WEB_LABEL "apps" CACHE STRING
    "First label of the store's web host, as it stands in the ad server's banner links")
set(VELMORA_STORE_CLASSIC_LABEL "classic" CACHE STRING
    "First label of the store's classic host, which replaces the web label in banner links")
set(VELMORA_STORE_LOOKUP_URL "https://lookup.velmora-store.example" CACHE STRING
    "Base URL of the store's look-up service, https, without a trailing slash")
set(VELMORA_REACHABILITY_PROBE "0.0.0.0" CACHE STRING
    "IPv4 address whose reachability stands for the internet; 0.0.0.0 asks for a default route")
