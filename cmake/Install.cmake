# What `cmake --install` puts under the prefix: every header, every static library of the library, the
# company engine and the Web Connector bridge, the brenvale tool, an exported CMake package
# (find_package(Brenvale); Brenvale::brenvale, Brenvale::rqp, Brenvale::webconnector) and pkg-config
# files (brenvale, brenvale-rqp, brenvale-webconnector).
include(CMakePackageConfigHelpers)

set(BRENVALE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Brenvale)
set(BRENVALE_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Every library target of the project, the host-facing ones under their short names.
# The folder libraries are the ones the build's folder functions made.
get_property(brenvale_folders GLOBAL PROPERTY BRENVALE_LIBRARIES)
set(brenvale_installed brenvale_lib brenvale_rqp brenvale_webconnector ${brenvale_folders})
list(REMOVE_DUPLICATES brenvale_installed)
foreach(target ${brenvale_installed})
  string(REGEX REPLACE "^brenvale_" "" short ${target})
  if(target STREQUAL "brenvale_lib")
    set(short brenvale)
  endif()
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${short})
endforeach()

install(TARGETS ${brenvale_installed} EXPORT BrenvaleTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS brenvale RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/brenvale DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.hpp")

install(EXPORT BrenvaleTargets NAMESPACE Brenvale:: DESTINATION ${BRENVALE_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/BrenvaleConfig.cmake.in
  ${PROJECT_BINARY_DIR}/BrenvaleConfig.cmake INSTALL_DESTINATION ${BRENVALE_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/BrenvaleConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/BrenvaleConfig.cmake ${PROJECT_BINARY_DIR}/BrenvaleConfigVersion.cmake
  DESTINATION ${BRENVALE_CMAKE_DIR})

# --- pkg-config ------------------------------------------------------------------------------------
# A module's static libraries go in link order (each before the libraries it uses), found by walking
# the targets' links; what they use outside the project becomes the module's Requires.

# The pkg-config module of an outside target, or empty.
function(brenvale_pkg_module target out)
  set(modules pugixml::pugixml=pugixml SQLite::SQLite3=sqlite3 OpenSSL::SSL=openssl OpenSSL::Crypto=openssl
              PkgConfig::HTTPLIB=cpp-httplib)
  set(${out} "" PARENT_SCOPE)
  foreach(pair ${modules})
    string(REPLACE "=" ";" pair "${pair}")
    list(GET pair 0 name)
    if(target STREQUAL name)
      list(GET pair 1 module)
      set(${out} ${module} PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

function(brenvale_visit target)
  get_property(seen GLOBAL PROPERTY brenvale_pc_seen)
  if(target IN_LIST seen)
    return()
  endif()
  set_property(GLOBAL APPEND PROPERTY brenvale_pc_seen ${target})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
  else()
    get_target_property(links ${target} LINK_LIBRARIES)
  endif()
  foreach(link ${links})
    if(link MATCHES "^\\$<" OR NOT TARGET ${link})
      continue()
    elseif(link MATCHES "^brenvale_")
      brenvale_visit(${link})
    elseif(link STREQUAL "Threads::Threads")
      set_property(GLOBAL APPEND PROPERTY brenvale_pc_flags -pthread)
    else()
      brenvale_pkg_module(${link} module)
      if(NOT module)
        message(FATAL_ERROR "${target} links ${link}, which has no pkg-config module named in cmake/Install.cmake")
      endif()
      set_property(GLOBAL APPEND PROPERTY brenvale_pc_requires ${module})
    endif()
  endforeach()
  if(type STREQUAL "STATIC_LIBRARY")
    set_property(GLOBAL APPEND PROPERTY brenvale_pc_order ${target})
  endif()
endfunction()

# Writes <module>.pc for the library `target` and what it uses.
function(brenvale_pkgconfig module target description)
  set_property(GLOBAL PROPERTY brenvale_pc_seen "")
  set_property(GLOBAL PROPERTY brenvale_pc_order "")
  set_property(GLOBAL PROPERTY brenvale_pc_requires "")
  set_property(GLOBAL PROPERTY brenvale_pc_flags "")
  brenvale_visit(${target})
  get_property(order GLOBAL PROPERTY brenvale_pc_order)
  get_property(requires GLOBAL PROPERTY brenvale_pc_requires)
  get_property(flags GLOBAL PROPERTY brenvale_pc_flags)
  list(REVERSE order)
  list(REMOVE_DUPLICATES requires)
  list(REMOVE_DUPLICATES flags)
  set(libs "-L\${libdir}")
  foreach(library ${order})
    string(APPEND libs " -l${library}")
  endforeach()
  foreach(flag ${flags})
    string(APPEND libs " ${flag}")
  endforeach()
  string(REPLACE ";" " " requires "${requires}")
  # Relocatable: the prefix is found from where the file lies.
  file(RELATIVE_PATH up /prefix/${BRENVALE_PKGCONFIG_DIR} /prefix)
  string(REGEX REPLACE "/$" "" up "${up}")
  set(BRENVALE_PC_PREFIX "\${pcfiledir}/${up}")
  set(BRENVALE_PC_NAME ${module})
  set(BRENVALE_PC_DESCRIPTION "${description}")
  set(BRENVALE_PC_REQUIRES "${requires}")
  set(BRENVALE_PC_LIBS "${libs}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/brenvale.pc.in ${PROJECT_BINARY_DIR}/pkgconfig/${module}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${module}.pc DESTINATION ${BRENVALE_PKGCONFIG_DIR})
endfunction()

brenvale_pkgconfig(brenvale brenvale_lib "QuickBooks company data through qbXML, as plain business objects")
brenvale_pkgconfig(brenvale-rqp brenvale_rqp "The company engine: a stand-in for QuickBooks over SQLite")
brenvale_pkgconfig(brenvale-webconnector brenvale_webconnector "QuickBooks' Web Connector, bridged to a request processor")
