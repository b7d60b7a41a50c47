# What `cmake --install` puts where, and the Debian package that `cpack` makes of it.
#
# The program keeps the file name by which the suite finds it, and finds its translations and its guide in the
# folder of its own name beside it. So all three lie in lib/project_editor, and a script in bin starts it.
include(GNUInstallDirs)
set(program_folder lib/project_editor)
set(adjunct_folder ${program_folder}/project_editor)

install(TARGETS project_editor RUNTIME DESTINATION ${program_folder})
install(PROGRAMS data/project_editor.sh DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME project_editor)
install(DIRECTORY examples/translations/ DESTINATION ${adjunct_folder})
install(DIRECTORY examples/suite/drive_c/Simulation/ DESTINATION ${adjunct_folder}/example)

install(FILES data/project_editor.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/project_editor.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES data/application-x-tilverra-project.svg data/application-x-tilverra-scenario.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/mimetypes)
install(FILES data/project_editor.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
configure_file(data/project_editor.metainfo.xml org.example.project_editor.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/org.example.project_editor.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The guide as the program's help page.
find_program(LOWDOWN lowdown)
if(LOWDOWN)
  set(guide ${CMAKE_BINARY_DIR}/help.html)
  add_custom_command(OUTPUT ${guide}
    COMMAND ${LOWDOWN} -s -Thtml -m title:User\ guide -m css:guide.css -o ${guide}
            ${CMAKE_SOURCE_DIR}/docs/user-guide.md
    DEPENDS docs/user-guide.md)
  add_custom_target(guide ALL DEPENDS ${guide})
  install(FILES ${guide} data/guide.css DESTINATION ${adjunct_folder})
  install(DIRECTORY docs/pictures DESTINATION ${adjunct_folder})
else()
  message(STATUS "lowdown is not installed: no guide as HTML")
endif()

# The command line, with what it says of itself: completions of shells, manual and help page.
install(TARGETS tvs_project RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(told ${CMAKE_BINARY_DIR}/tvs_project_told)
file(MAKE_DIRECTORY ${told})
set(tell ${CMAKE_COMMAND} -E env --unset=TVS_DRIVES XDG_DATA_HOME=${told}/data $<TARGET_FILE:tvs_project>)
add_custom_command(OUTPUT ${told}/tvs_project.md
  COMMAND ${tell} completion bash > ${told}/tvs_project.bash
  COMMAND ${tell} completion zsh > ${told}/_tvs_project
  COMMAND ${tell} manual > ${told}/tvs_project.md
  DEPENDS tvs_project)
add_custom_target(tvs_project_told ALL DEPENDS ${told}/tvs_project.md)
install(FILES ${told}/tvs_project.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME tvs_project)
install(FILES ${told}/_tvs_project DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
if(LOWDOWN)
  add_custom_command(OUTPUT ${told}/tvs_project.1
    COMMAND ${LOWDOWN} -s -Tman -o ${told}/tvs_project.1 ${told}/tvs_project.md
    COMMAND ${LOWDOWN} -s -Thtml -m css:guide.css -o ${told}/tvs_project.html ${told}/tvs_project.md
    DEPENDS ${told}/tvs_project.md)
  add_custom_target(tvs_project_manual ALL DEPENDS ${told}/tvs_project.1)
  install(FILES ${told}/tvs_project.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${told}/tvs_project.html DESTINATION ${adjunct_folder})
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME project-editor)
set(CPACK_PACKAGE_CONTACT "The makers of the project editor <project_editor@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Editor of cropping-system simulation projects")
set(CPACK_PACKAGE_DESCRIPTION
    "Edits the projects and scenarios of a suite of cropping-system simulation programs,
runs their model, compares outputs and generates families of scenarios, in a window
and from the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "xdg-utils, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n")
include(CPack)
