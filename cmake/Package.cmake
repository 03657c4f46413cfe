# find_package(Quillon) for host programs: one target a floor, and Quillon::quillon for all of them.
include(CMakePackageConfigHelpers)

get_property(floors GLOBAL PROPERTY QUILLON_FLOORS)
add_library(quillon_all INTERFACE)
set_target_properties(quillon_all PROPERTIES EXPORT_NAME quillon)
add_library(Quillon::quillon ALIAS quillon_all)
target_link_libraries(quillon_all INTERFACE ${floors})

install(TARGETS ${floors} quillon_all
        EXPORT QuillonTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillon)
install(EXPORT QuillonTargets NAMESPACE Quillon:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Quillon)
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/QuillonConfig.cmake"
"include(CMakeFindDependencyMacro)
find_dependency(Threads)
include(\"\${CMAKE_CURRENT_LIST_DIR}/QuillonTargets.cmake\")
")
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/QuillonConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/QuillonConfig.cmake"
              "${CMAKE_CURRENT_BINARY_DIR}/QuillonConfigVersion.cmake"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Quillon)
