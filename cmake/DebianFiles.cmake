# Run by CPack in the staged files of the Debian package: the changelogs and compressed pages that its policy asks for.

set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(doc ${share}/doc/hourwright)

# Both times follow SOURCE_DATE_EPOCH when it is set.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${doc}/changelog.Debian "hourwright (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) bookworm; \
urgency=medium\n\n  * Built from the source of version ${CPACK_PACKAGE_VERSION}; changelog.gz says what it brings.\n\n\
 -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
file(COPY_FILE ${CPACK_RESOURCE_FILE_CHANGELOG} ${doc}/changelog)

file(GLOB pages ${share}/man/man1/*.1)
execute_process(COMMAND gzip -9nf ${doc}/changelog.Debian ${doc}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB packed ${doc}/*.gz ${share}/man/man1/*.gz)
file(CHMOD ${packed} FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(CREATE_LINK ../../hourwright/manual ${doc}/manual SYMBOLIC)
