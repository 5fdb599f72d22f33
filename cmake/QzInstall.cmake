# Install rules and the CMake package, so that a consumer writes find_package(qzdescriptor).

include(CMakePackageConfigHelpers)

set(libraries qzdescriptor store qzutl qzdistribution qzinterp qzsigslot selexpr)
install(TARGETS ${libraries} EXPORT qzdescriptorTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
get_property(interpreters GLOBAL PROPERTY QZ_INTERPRETERS)
if(interpreters)
  install(TARGETS ${interpreters} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
foreach(folder include/descriptor store/include/store platform/qzutl/include/qzutl
               platform/qzdistribution/include/qzdistribution platform/qzinterp/include/qzinterp
               platform/qzsigslot/include/qzsigslot platform/selexpr/include/selexpr)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          FILES_MATCHING PATTERN "*.h")
endforeach()
foreach(folder descriptor store qzdistribution qzinterp qzsigslot selexpr)
  install(FILES ${PROJECT_BINARY_DIR}/include/${folder}/Export.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qzdescriptor)
install(EXPORT qzdescriptorTargets NAMESPACE qzdescriptor:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/qzdescriptorConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/qzdescriptorConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qzdescriptorConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qzdescriptorConfig.cmake
              ${PROJECT_BINARY_DIR}/qzdescriptorConfigVersion.cmake DESTINATION ${package_dir})
