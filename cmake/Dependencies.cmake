# SPDX-License-Identifier: Apache-2.0
# What the library is linked with. Hosts of the static library link the same, so
# VelmoraConfig.cmake.in looks for it too.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets)
if(NOT APPLE)
    find_package(Qt6 6.4 REQUIRED COMPONENTS DBus)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(libmnl REQUIRED IMPORTED_TARGET libmnl)
    pkg_check_modules(xcb REQUIRED IMPORTED_TARGET xcb)
endif()

# Loaded at run time (CurlLibrary), so that only its headers are needed.
find_package(CURL 7.87 REQUIRED)
add_library(velmora_curl_headers INTERFACE)
target_include_directories(velmora_curl_headers SYSTEM INTERFACE
    $<TARGET_PROPERTY:CURL::libcurl,INTERFACE_INCLUDE_DIRECTORIES>)
