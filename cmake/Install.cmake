# Installs the libraries, their public headers under the paths they are included by, and what CMake and pkg-config need
# to find them. Everything found from there is relative, so an installed tree can be moved. The components are what
# Packaging/ makes packages of. The build folder is a package too, so that nobody has to install to begin.
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ZRKitDynamic)

set_target_properties(ZRPlatform ZRKitDynamic PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ZRPlatform ZRKitDynamic EXPORT ZRKitDynamicTargets
    LIBRARY COMPONENT library NAMELINK_COMPONENT development FILE_SET HEADERS COMPONENT development)
install(EXPORT ZRKitDynamicTargets NAMESPACE ZRKitDynamic:: DESTINATION ${package_folder} COMPONENT development)
export(EXPORT ZRKitDynamicTargets NAMESPACE ZRKitDynamic:: FILE ${PROJECT_BINARY_DIR}/ZRKitDynamicTargets.cmake)

configure_package_config_file(cmake/ZRKitDynamicConfig.cmake.in ${PROJECT_BINARY_DIR}/ZRKitDynamicConfig.cmake
    INSTALL_DESTINATION ${package_folder})
# Until version 1 a minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZRKitDynamicConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZRKitDynamicConfig.cmake ${PROJECT_BINARY_DIR}/ZRKitDynamicConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)

# The path from the folder of the .pc files up to the prefix.
file(RELATIVE_PATH pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pc_prefix ${pc_prefix})
foreach(library ZRPlatform ZRKitDynamic)
    configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT license)
