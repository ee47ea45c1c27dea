# Install rules of all libraries made with axr_library, and the CMake package.

include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY AXR_LIBRARIES)
foreach(library IN LISTS libraries)
    get_target_property(headers ${library} AXR_HEADERS)
    install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/AXRGui)
    install(TARGETS ${library} EXPORT AXRGuiTargets)
endforeach()

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/AXRGui")
install(EXPORT AXRGuiTargets NAMESPACE AXRGui:: DESTINATION ${package_dir})
configure_package_config_file(cmake/AXRGuiConfig.cmake.in AXRGuiConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(AXRGuiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/AXRGuiConfig.cmake"
    "${PROJECT_BINARY_DIR}/AXRGuiConfigVersion.cmake"
    DESTINATION ${package_dir})
