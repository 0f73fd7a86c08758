# `install` and the package that find_package(Quillmarker) reads.

include(CMakePackageConfigHelpers)

set(quillmarkerPackageDir "${CMAKE_INSTALL_LIBDIR}/cmake/Quillmarker")

install(TARGETS QuillmarkerCore EXPORT QuillmarkerCoreTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
if(QUILLMARKER_BUILD_PAGES)
    install(TARGETS QuillmarkerPages EXPORT QuillmarkerPagesTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(EXPORT QuillmarkerPagesTargets NAMESPACE Quillmarker:: DESTINATION "${quillmarkerPackageDir}")
endif()
if(QUILLMARKER_BUILD_WIDGETS)
    install(TARGETS QuillmarkerWidgets EXPORT QuillmarkerWidgetsTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
    install(EXPORT QuillmarkerWidgetsTargets NAMESPACE Quillmarker:: DESTINATION "${quillmarkerPackageDir}")
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/quillmarker"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h")
install(EXPORT QuillmarkerCoreTargets NAMESPACE Quillmarker:: DESTINATION "${quillmarkerPackageDir}")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/QuillmarkerConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/QuillmarkerConfig.cmake"
    INSTALL_DESTINATION "${quillmarkerPackageDir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuillmarkerConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/QuillmarkerConfig.cmake"
    "${PROJECT_BINARY_DIR}/QuillmarkerConfigVersion.cmake"
    DESTINATION "${quillmarkerPackageDir}")
