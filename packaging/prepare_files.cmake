# Run by cpack on what it is about to pack, so that it does not matter who builds and when: the folders are everybody's,
# whatever the umask, and all is of the time that the installer for Windows keeps of each file.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_INSTALL_DIRECTORY} DIRECTORY_PERMISSIONS
     OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch -d @$ENV{SOURCE_DATE_EPOCH} {} +
                COMMAND_ERROR_IS_FATAL ANY)
