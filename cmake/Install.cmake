# What `cmake --install` puts under the prefix: the programs; the module and the shared files, which
# they find from their own place; and what a desktop and a Debian package want beside them.
# cmake/Package.cmake packs it.

set(packaging_dir ${CMAKE_SOURCE_DIR}/packaging)
set(made_dir ${CMAKE_BINARY_DIR}/packaging)
set(doc_dir share/doc/feedloom)
set(icon_dir share/icons/hicolor)

# make_gzip(FILE DIR): FILE, compressed the same way every time, is installed in DIR.
function(make_gzip file dir)
  cmake_path(GET file FILENAME name)
  set(made ${made_dir}/${name}.gz)
  add_custom_command(
    OUTPUT ${made}
    COMMAND gzip -9n < ${file} > ${made}
    DEPENDS ${file}
    COMMENT "Compressing ${name}"
    VERBATIM)
  install(FILES ${made} DESTINATION ${dir})
  set_property(GLOBAL APPEND PROPERTY FEEDLOOM_MADE_FILES ${made})
endfunction()

# make_icon(SVG PIXELS): the program's icon as an image of this size is installed.
function(make_icon svg pixels)
  set(dir ${icon_dir}/${pixels}x${pixels}/apps)
  set(made ${made_dir}/${pixels}/halvix.png)
  file(MAKE_DIRECTORY ${made_dir}/${pixels})
  add_custom_command(
    OUTPUT ${made}
    COMMAND rsvg-convert --width ${pixels} --height ${pixels} --output ${made} ${svg}
    DEPENDS ${svg}
    COMMENT "Drawing the icon with ${pixels} pixels"
    VERBATIM)
  install(FILES ${made} DESTINATION ${dir})
  set_property(GLOBAL APPEND PROPERTY FEEDLOOM_MADE_FILES ${made})
endfunction()

# make_completion(SHELL PATH): the completion of feedloomctl's commands, as it prints it itself.
function(make_completion shell path)
  set(made ${made_dir}/completion.${shell})
  add_custom_command(
    OUTPUT ${made}
    COMMAND feedloomctl completion ${shell} > ${made}
    DEPENDS feedloomctl
    COMMENT "Writing the completion for ${shell}"
    VERBATIM)
  cmake_path(GET path PARENT_PATH dir)
  cmake_path(GET path FILENAME name)
  install(FILES ${made} DESTINATION share/${dir} RENAME ${name})
  set_property(GLOBAL APPEND PROPERTY FEEDLOOM_MADE_FILES ${made})
endfunction()

file(MAKE_DIRECTORY ${made_dir})

# What strangers send is read here: no table of functions stays writable.
foreach(target halvix feedloomctl feedloom)
  target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now)
endforeach()

install(TARGETS halvix feedloomctl RUNTIME DESTINATION bin)
# Not a library for others: as deep as this cpack adds no scripts for the linker, of which a removal
# would leave traces.
install(TARGETS feedloom LIBRARY DESTINATION lib/feedloom/module)
install(PROGRAMS ${CMAKE_SOURCE_DIR}/tools/feedloom-directory DESTINATION bin)

install(FILES ${CMAKE_SOURCE_DIR}/share/string.ini ${CMAKE_SOURCE_DIR}/share/image.ini
              ${CMAKE_SOURCE_DIR}/share/schema.sql ${CMAKE_SOURCE_DIR}/share/gone_links.sql
              ${CMAKE_SOURCE_DIR}/share/undo.sql ${CMAKE_SOURCE_DIR}/share/post_details.sql
              ${CMAKE_SOURCE_DIR}/share/text_index.sql
              ${CMAKE_SOURCE_DIR}/share/filters.sql
              DESTINATION share/feedloom)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/share/sample DESTINATION share/feedloom)
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/feedloom/skin DESTINATION share/feedloom)

install(FILES ${packaging_dir}/halvix.desktop DESTINATION share/applications)
set(metainfo example.feedloom.halvix.metainfo.xml)
configure_file(${packaging_dir}/${metainfo}.in ${made_dir}/${metainfo} @ONLY)
install(FILES ${made_dir}/${metainfo} DESTINATION share/metainfo)
set(icon ${CMAKE_SOURCE_DIR}/share/skin/src/halvix.svg)
install(FILES ${icon} DESTINATION ${icon_dir}/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/share/skin/src/halvix-symbolic.svg
        DESTINATION ${icon_dir}/symbolic/apps)
foreach(pixels 16 22 24 32 48 64 128 256)
  make_icon(${icon} ${pixels})
endforeach()

foreach(page halvix feedloomctl feedloom-directory)
  make_gzip(${CMAKE_SOURCE_DIR}/docs/man/${page}.1 share/man/man1)
endforeach()
make_completion(bash bash-completion/completions/feedloomctl)
make_completion(zsh zsh/vendor-completions/_feedloomctl)
make_completion(fish fish/vendor_completions.d/feedloomctl.fish)
make_gzip(${packaging_dir}/changelog ${doc_dir})
install(FILES ${packaging_dir}/copyright DESTINATION ${doc_dir})

get_property(made_files GLOBAL PROPERTY FEEDLOOM_MADE_FILES)
add_custom_target(packaging_files ALL DEPENDS ${made_files})

include(cmake/Package.cmake)
