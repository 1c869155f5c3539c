# What the .exe contains besides code: icon, version, manifest. Its packages are made by pack.
set(icon ${CMAKE_CURRENT_LIST_DIR}/icon.ico)
set(manifest ${CMAKE_CURRENT_LIST_DIR}/program.manifest)
configure_file(${CMAKE_CURRENT_LIST_DIR}/program.rc.in program.rc @ONLY)
target_sources(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/program.rc)
set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/program.rc TARGET_DIRECTORY ${program}
             PROPERTY OBJECT_DEPENDS ${icon} ${manifest})
target_link_options(${program} PRIVATE -s -Wl,--no-insert-timestamp)
