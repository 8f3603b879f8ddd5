# CPack runs this over the staged files of the Debian package, before it packs them.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(doc ${share}/doc/kelmora)
file(MAKE_DIRECTORY ${doc})
file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${doc})
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${doc}/changelog.Debian COPYONLY)
file(GLOB pages ${share}/man/man1/*.1)
# without names and times, so that the same sources give the same package
execute_process(COMMAND gzip -9n ${pages} ${doc}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
# the program shows the guide, so it may not stand among documents, which may be left out; readers look for it there
file(CREATE_LINK ../../kelmora/docs/guide ${doc}/guide SYMBOLIC)
file(CREATE_LINK ../../kelmora/samples ${doc}/samples SYMBOLIC)
