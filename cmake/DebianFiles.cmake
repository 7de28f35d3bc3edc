# Run by CPack in the staged files of the Debian package: what its policy asks for beyond `make install`.

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

file(WRITE ${share}/lintian/overrides/hourwright "# The package is no part of Debian, so there is no bug to close.
hourwright: initial-upload-closes-no-bugs *
# The window opens the manual, so it must be there where documentation is left out.
hourwright: package-contains-documentation-outside-usr-share-doc *
")
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs} COMMAND_ERROR_IS_FATAL ANY)
