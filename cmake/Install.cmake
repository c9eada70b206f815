# SPDX-License-Identifier: Apache-2.0
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Velmora)

install(TARGETS velmora EXPORT VelmoraTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# The library looks for its video module and its video helper in "velmora" beside itself.
if(TARGET velmora_video)
    install(TARGETS velmora_video velmora-video-helper
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/velmora
        RUNTIME DESTINATION ${CMAKE_INSTALL_LIBDIR}/velmora)
endif()
install(DIRECTORY include/Velmora DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT VelmoraTargets NAMESPACE Velmora:: DESTINATION ${package_dir})

configure_package_config_file(cmake/VelmoraConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VelmoraConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VelmoraConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VelmoraConfig.cmake
    ${PROJECT_BINARY_DIR}/VelmoraConfigVersion.cmake DESTINATION ${package_dir})
