# SPDX-License-Identifier: Apache-2.0
# The component Velmora_Runtime is what a host's users need, Velmora_Development what its developers
# need besides.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Velmora)

install(TARGETS velmora EXPORT VelmoraTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Velmora_Development
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT Velmora_Runtime NAMELINK_COMPONENT Velmora_Development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# The library looks for its video module and its video helper in "velmora" beside itself.
if(TARGET velmora_video)
    install(TARGETS velmora_video velmora-video-helper EXPORT VelmoraTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/velmora COMPONENT Velmora_Runtime
        RUNTIME DESTINATION ${CMAKE_INSTALL_LIBDIR}/velmora COMPONENT Velmora_Runtime)
endif()
install(DIRECTORY include/Velmora DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT Velmora_Development)
install(EXPORT VelmoraTargets NAMESPACE Velmora:: DESTINATION ${package_dir}
    COMPONENT Velmora_Development)

set(has_qml_module OFF)
if(TARGET velmora_quick)
    set(has_qml_module ON)
endif()
configure_package_config_file(cmake/VelmoraConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VelmoraConfig.cmake INSTALL_DESTINATION ${package_dir}
    PATH_VARS VELMORA_INSTALL_QMLDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VelmoraConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VelmoraConfig.cmake
    ${PROJECT_BINARY_DIR}/VelmoraConfigVersion.cmake cmake/VelmoraVideoFiles.cmake
    DESTINATION ${package_dir} COMPONENT Velmora_Development)
