# Debian packages, made by cpack (scripts/package).

include(GNUInstallDirs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME skinkit)
set(CPACK_PACKAGE_CONTACT "SkinKit maintainers <maintainers@skinkit.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/compress-manuals.cmake)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# group: programs. Linked statically, so that they need nothing else.
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME skintool)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS shared-mime-info)
set(CPACK_DEBIAN_PROGRAMS_DESCRIPTION
"render classic player skins, and show them in file managers
skintool draws the windows of classic player skins (.wsz) as PNG files, pixel
for pixel, compares renders, and runs and reports on whole collections.
velmar-thumbnailer makes the pictures that file managers show for skins.")

# group: library
set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(libraryPackage libskinkit${soversion})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${libraryPackage})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
"library that reads classic player skins and draws their windows
SkinKit turns any classic skin (.wsz), however damaged, into a value that never
changes, and draws the main window, the equalizer and the playlist from it.")

# group: development
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libskinkit-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${libraryPackage} (= ${PROJECT_VERSION})")
# What a program needs that takes the static library.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS
  "libdeflate-dev, libmd-dev, libpng-dev, libutf8proc-dev, zlib1g-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"headers and static library of SkinKit
What is needed to build programs with SkinKit, which reads classic player skins
and draws their windows: headers, the static library, and the files by which
CMake and pkg-config find them.")

# Changelog, copyright and the remarks to lintian of a group's package. Only packages have them.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE committed OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  set(ENV{SOURCE_DATE_EPOCH} ${committed})
endif()
string(TIMESTAMP changelogDate "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(papers ${PROJECT_BINARY_DIR}/packaging)
function(skinkit_papers group name)
  configure_file(packaging/changelog.in ${papers}/${name}/changelog @ONLY)
  execute_process(COMMAND gzip -9nf ${papers}/${name}/changelog COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${papers}/${name}/changelog.gz packaging/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
    COMPONENT ${group}-papers EXCLUDE_FROM_ALL)
  if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/${group}.lintian-overrides)
    install(FILES packaging/${group}.lintian-overrides RENAME ${name}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
      COMPONENT ${group}-papers EXCLUDE_FROM_ALL)
  endif()
endfunction()
skinkit_papers(programs skintool)
skinkit_papers(library ${libraryPackage})
skinkit_papers(development libskinkit-dev)
install(DIRECTORY examples/corpus USE_SOURCE_PERMISSIONS
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/skintool/examples
  COMPONENT programs-papers EXCLUDE_FROM_ALL)
install(DIRECTORY examples/player
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libskinkit-dev/examples
  COMPONENT development-papers EXCLUDE_FROM_ALL)

set(CPACK_COMPONENTS_ALL
  skintool thumbnailer programs-papers library library-papers development development-papers)
include(CPack)
foreach(component skintool thumbnailer programs-papers)
  cpack_add_component(${component} GROUP programs)
endforeach()
foreach(group library development)
  cpack_add_component(${group} GROUP ${group})
  cpack_add_component(${group}-papers GROUP ${group})
endforeach()
