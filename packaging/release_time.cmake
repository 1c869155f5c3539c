# Run by cpack first: the times in the packages are the changelog's. The .zip has local times, hence UTC.
execute_process(COMMAND dpkg-parsechangelog -l ${CMAKE_CURRENT_LIST_DIR}/changelog -S Timestamp
                OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(ENV{SOURCE_DATE_EPOCH} ${time})
set(ENV{TZ} UTC)
