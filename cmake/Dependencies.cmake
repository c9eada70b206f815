# SPDX-License-Identifier: Apache-2.0
# What the library is linked with. Hosts of the static library link the same, so
# VelmoraConfig.cmake.in looks for it too.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network Widgets UiTools)
find_package(CURL 7.85 REQUIRED)
if(NOT APPLE)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(libmnl REQUIRED IMPORTED_TARGET libmnl)
    pkg_check_modules(xcb REQUIRED IMPORTED_TARGET xcb)
endif()
