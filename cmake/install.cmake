# What a provider's author builds against: find_package(Holm), Holm::OrvaneCore, Holm::KestMainProvider.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Holm)
install(EXPORT HolmTargets NAMESPACE Holm:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/HolmConfig.cmake.in
    ${PROJECT_BINARY_DIR}/HolmConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/HolmConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/HolmConfig.cmake ${PROJECT_BINARY_DIR}/HolmConfigVersion.cmake
    DESTINATION ${package_dir})

install(DIRECTORY widgets/ DESTINATION ${KESTCMD_APPLICATION_DIR}/widgets
    PATTERN jsconfig.json EXCLUDE PATTERN server EXCLUDE)
install(FILES README.md LICENSE docs/kestcmd.d.ts DESTINATION ${CMAKE_INSTALL_DOCDIR})
