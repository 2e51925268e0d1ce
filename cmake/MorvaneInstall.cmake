# Where everything lies once it is installed. The programs lie together, with what they look for beside
# themselves; those that people call have a link in bin. Nothing lies outside the prefix.
#
# Components: desktop, cli (what needs no display) and doc.

set(MORVANE_HOMEPAGE "https://morvane.example" CACHE STRING "Where software centres send their users")

set(programs ${CMAKE_INSTALL_LIBEXECDIR}/morvane)
set(guide ${CMAKE_INSTALL_DATADIR}/morvane/guide)
set(rules lib/udev/rules.d)
set(applications ${CMAKE_INSTALL_DATADIR}/applications)
set(mime ${CMAKE_INSTALL_DATADIR}/mime/packages)
set(metainfo ${CMAKE_INSTALL_DATADIR}/metainfo)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(sizes 16 22 24 32 48 64 128 256 512)
set(bash ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
set(zsh ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
set(fish ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
set(man1 ${CMAKE_INSTALL_MANDIR}/man1)
set(man5 ${CMAKE_INSTALL_MANDIR}/man5)

# Before anything is installed: which folders are made for it, and so go with it.
set(folders ${CMAKE_INSTALL_BINDIR} ${programs} ${rules} ${applications} ${mime} ${metainfo} ${icons}/scalable/apps
            ${bash} ${zsh} ${fish} ${man1} ${man5})
foreach(size ${sizes})
  list(APPEND folders ${icons}/${size}x${size}/apps)
endforeach()
foreach(pictures 100 200 paper)
  list(APPEND folders ${guide}/pictures/${pictures})
endforeach()
install(CODE "set(MORVANE_BUILD [[${PROJECT_BINARY_DIR}]])
              set(MORVANE_FOLDERS [[${folders}]])" ALL_COMPONENTS)
install(SCRIPT ${PROJECT_SOURCE_DIR}/cmake/BeforeInstall.cmake ALL_COMPONENTS)

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/installed)

# morvane_called(COMPONENT TARGET): a program that people call, its man page and completions.
function(morvane_called component target)
  install(TARGETS ${target} RUNTIME DESTINATION ${programs} COMPONENT ${component})
  file(RELATIVE_PATH folder ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/morvane)
  set(link ${PROJECT_BINARY_DIR}/installed/${target})
  file(CREATE_LINK ${folder}/${target} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
  morvane_pages(${component} man1 ${target}.1)
  morvane_pages(${component} bash ${target})
  morvane_pages(${component} zsh _${target})
  morvane_pages(${component} fish ${target}.fish)
endfunction()

# morvane_pages(COMPONENT FOLDER PATTERN): generated pages; a folder goes into the variable of its name.
function(morvane_pages component folder pattern)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/pages/${folder}/ DESTINATION ${${folder}}
          COMPONENT ${component} OPTIONAL FILES_MATCHING PATTERN ${pattern})
endfunction()

morvane_called(desktop morvane)
morvane_called(cli morvane-cli)
morvane_called(cli morvane-machine)
install(TARGETS DDS_1 RUNTIME DESTINATION ${programs} COMPONENT cli)
morvane_pages(cli man1 morvane-cli-*.1)
morvane_pages(cli man5 *.5)
install(DIRECTORY ${PROJECT_BINARY_DIR}/guide/ DESTINATION ${guide} COMPONENT doc OPTIONAL)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
install(FILES ${PROJECT_SOURCE_DIR}/apps/morvane/Dealing_Error.wav DESTINATION ${programs} COMPONENT desktop)
install(FILES ${packaging}/70-morvane.rules DESTINATION ${rules} COMPONENT cli)

# What a desktop environment knows of the program.
configure_file(${packaging}/org.morvane.morvane.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/installed/org.morvane.morvane.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/installed/org.morvane.morvane.metainfo.xml
        DESTINATION ${metainfo} COMPONENT desktop)
install(FILES ${packaging}/morvane.desktop DESTINATION ${applications} COMPONENT desktop)
install(FILES ${packaging}/morvane.xml DESTINATION ${mime} COMPONENT desktop)
install(FILES ${packaging}/icons/morvane.svg DESTINATION ${icons}/scalable/apps COMPONENT desktop)
foreach(size ${sizes})
  install(FILES ${packaging}/icons/morvane_${size}.png RENAME morvane.png
          DESTINATION ${icons}/${size}x${size}/apps COMPONENT desktop)
endforeach()

install(SCRIPT ${PROJECT_SOURCE_DIR}/cmake/AfterInstall.cmake ALL_COMPONENTS)

add_custom_target(uninstall COMMAND ${CMAKE_COMMAND} -D BUILD=${PROJECT_BINARY_DIR}
                                    -P ${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake VERBATIM)
