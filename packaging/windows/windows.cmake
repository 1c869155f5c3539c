# What the .exe contains besides code (icon, version, manifest), and its packages: an installer and an archive.
set(CMAKE_INSTALL_BINDIR .)
set(icon ${CMAKE_CURRENT_LIST_DIR}/icon.ico)
set(manifest ${CMAKE_CURRENT_LIST_DIR}/program.manifest)
configure_file(${CMAKE_CURRENT_LIST_DIR}/program.rc.in program.rc @ONLY)
target_sources(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/program.rc)
set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/program.rc TARGET_DIRECTORY ${program}
             PROPERTY OBJECT_DEPENDS ${icon} ${manifest})
target_link_options(${program} PRIVATE -s -Wl,--no-insert-timestamp)

# The licences of everything that is linked into the .exe, which licences.txt lists.
set(qt_licences ${PROJECT_SOURCE_DIR}/build/windows-qt/installed/licences)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE RENAME LICENSE.txt DESTINATION licences)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/licences.txt DESTINATION .)
install(FILES ${qt_licences}/LGPL-3.0-only.txt ${qt_licences}/GPL-3.0-only.txt ${qt_licences}/qt6-base.txt
        DESTINATION licences)
install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright RENAME gcc.txt DESTINATION licences)
install(FILES /usr/share/doc/mingw-w64-common/copyright RENAME mingw-w64.txt DESTINATION licences)

set(CPACK_GENERATOR NSIS ZIP)
set(CPACK_PACKAGE_FILE_NAME ${program}-${PROJECT_VERSION}-windows)
set(CPACK_PACKAGE_VENDOR "Celestrix Satellite Encoder maintainers")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Celestrix Satellite Encoder")
set(CPACK_PACKAGE_EXECUTABLES ${program} "Celestrix Satellite Encoder")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
# The installer is a 64-bit program like the one that it installs. Without VERBATIM, its compiler would not get the
# backslash.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_NSIS_EXECUTABLE_PRE_ARGUMENTS [[-XTarget\ amd64-unicode]])
set(CPACK_NSIS_DEFINES "SetDateSave off") # otherwise it would contain the times of the files
set(CPACK_NSIS_EXECUTABLES_DIRECTORY .)
set(CPACK_NSIS_DISPLAY_NAME "Celestrix Satellite Encoder")
set(CPACK_NSIS_INSTALLED_ICON_NAME ${program}.exe)
set(CPACK_NSIS_MUI_ICON ${icon})
set(CPACK_NSIS_MUI_UNIICON ${icon})
set(CPACK_NSIS_MANIFEST_DPI_AWARE ON)
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
# By itself the uninstaller removes the program's registry key and leaves the maintainers'. This is the last place where
# commands can be added to it.
set(CPACK_NSIS_DELETE_ICONS_EXTRA [[DeleteRegKey /ifempty SHCTX "Software\Celestrix Satellite Encoder maintainers"]])
include(CPack)
