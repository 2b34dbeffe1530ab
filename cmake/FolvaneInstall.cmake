# What `cmake --install` gives a host: the library, its headers, the package Folvane with the target Folvane::Folvane,
# the same for pkg-config, and the licences.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Folvane)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/FolvaneConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/package/FolvaneConfig.cmake INSTALL_DESTINATION ${package_folder})
# Before 1.0 each minor version may change the public headers.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/FolvaneConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)

# The prefix is told as seen from the file itself, so that the installed tree can be moved.
set(pkgconfig_folder ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH prefix_from_pkgconfig ${pkgconfig_folder} ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/folvane.pc.in ${PROJECT_BINARY_DIR}/package/folvane.pc @ONLY)

install(TARGETS Folvane EXPORT FolvaneTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/folvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT library)
install(EXPORT FolvaneTargets NAMESPACE Folvane:: DESTINATION ${package_folder} COMPONENT library)
install(FILES ${PROJECT_BINARY_DIR}/package/FolvaneConfig.cmake ${PROJECT_BINARY_DIR}/package/FolvaneConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT library)
install(FILES ${PROJECT_BINARY_DIR}/package/folvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT library)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/folvane COMPONENT library)
