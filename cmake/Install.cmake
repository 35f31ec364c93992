# Installation: the program (component "program"), and what others build against (component
# "embedding"): the libraries side by side, the headers and the CMake package.
include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/MfgPPWord)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/MfgPPWord)

set_target_properties(MfgPPWordPlatform PROPERTIES EXPORT_NAME platform)
set_target_properties(MfgPPWordInterfaces PROPERTIES EXPORT_NAME interfaces)
set_target_properties(MfgPPWordHost PROPERTIES EXPORT_NAME host INSTALL_RPATH $ORIGIN)
set_target_properties(MfgPPWord PROPERTIES EXPORT_NAME module INSTALL_RPATH $ORIGIN)
# The binary interface: until 1.0.0 each minor version has one of its own (docs/versions.md). The host
# loads the module by the name without a version.
set(abi_version ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(abi_version 0.${PROJECT_VERSION_MINOR})
endif()
set_target_properties(MfgPPWordHost MfgPPWord PROPERTIES VERSION ${PROJECT_VERSION}
                                                         SOVERSION ${abi_version})
file(RELATIVE_PATH bin_to_lib /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(ppword PROPERTIES INSTALL_RPATH $ORIGIN/${bin_to_lib})

install(TARGETS ppword RUNTIME COMPONENT program)
install(
  FILES ${PROJECT_SOURCE_DIR}/docs/ppword.1
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT program)
install(TARGETS MfgPPWordExpressions LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT embedding)
install(
  TARGETS MfgPPWordPlatform MfgPPWordInterfaces MfgPPWordHost MfgPPWord
  EXPORT MfgPPWordTargets
  LIBRARY COMPONENT embedding)

# The headers that embedders need; headers.txt of the package test lists them.
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/platform ${PROJECT_SOURCE_DIR}/interfaces
  DESTINATION ${include_dir}
  COMPONENT embedding
  FILES_MATCHING
  PATTERN "*.h")
set(host_dir ${PROJECT_SOURCE_DIR}/host)
install(
  DIRECTORY ${host_dir}/document ${host_dir}/knowledge ${host_dir}/manufacturing
            ${host_dir}/modeler ${host_dir}/system
  DESTINATION ${include_dir}/host
  COMPONENT embedding
  FILES_MATCHING
  PATTERN "*.h"
  # How the host stores documents and files, and how its model offers interfaces, is internal.
  REGEX "/document/(Database|Digest|DocumentFormat|Sqlite|StoredDocument)\\.h$" EXCLUDE
  REGEX "/manufacturing/(OperationExtensions|ToolChange|ToolExtensions)\\.h$" EXCLUDE
  REGEX "/modeler/FeatureOrder\\.h$" EXCLUDE
  REGEX "/system/(EndingSignals|FileBeside|LateLibrary|Revision|SystemReason)\\.h$" EXCLUDE)

install(
  EXPORT MfgPPWordTargets
  NAMESPACE MfgPPWord::
  DESTINATION ${package_dir}
  COMPONENT embedding)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/MfgPPWordConfig.cmake.in ${CMAKE_BINARY_DIR}/MfgPPWordConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/MfgPPWordConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(
  FILES ${CMAKE_BINARY_DIR}/MfgPPWordConfig.cmake
        ${CMAKE_BINARY_DIR}/MfgPPWordConfigVersion.cmake
  DESTINATION ${package_dir}
  COMPONENT embedding)
