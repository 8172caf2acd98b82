# What an installed tree has. Nothing in it names the prefix: it may be moved as a whole.
include(CMakePackageConfigHelpers)

install(TARGETS zorsl9 zorcore EXPORT zorsl9-targets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT Development)
install(FILES include/zors.h include/zors.hpp include/zors_status.h include/zorcore.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)
install(DIRECTORY include/zors DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)

# find_package(zorsl9 8.2): zors::zorsl9 and zors::zorcore.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zorsl9)
configure_package_config_file(cmake/zorsl9-config.cmake.in ${PROJECT_BINARY_DIR}/zorsl9-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zorsl9-config-version.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT zorsl9-targets NAMESPACE zors:: DESTINATION ${package_dir} COMPONENT Development)
install(FILES ${PROJECT_BINARY_DIR}/zorsl9-config.cmake ${PROJECT_BINARY_DIR}/zorsl9-config-version.cmake
        DESTINATION ${package_dir} COMPONENT Development)

# pkg-config zorsl9, pkg-config zorcore. ${pcfiledir} is where the file stands.
file(RELATIVE_PATH up ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" up ${up})
file(RELATIVE_PATH libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
foreach(library zorsl9 zorcore)
  configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
endforeach()
