# Text files that the programs carry inside them.

set(BRINMOOR_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/EmbedText.cmake)

# brinmoor_embed(<out variable> <header> <namespace> <name>=<file> ...)
#
# Makes a source that defines each name of the header as a std::string_view of the file's bytes.
function(brinmoor_embed out header namespace)
    string(MAKE_C_IDENTIFIER ${header} stem)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${stem}.cpp)
    set(files)
    foreach(entry IN LISTS ARGN)
        string(REGEX REPLACE "^[^=]*=" "" file ${entry})
        list(APPEND files ${file})
    endforeach()
    string(REPLACE ";" "|" entries "${ARGN}")
    add_custom_command(
        OUTPUT ${source}
        COMMAND ${CMAKE_COMMAND} -DSOURCE=${source} -DHEADER=${header} -DNAMESPACE=${namespace}
                "-DENTRIES=${entries}" -P ${BRINMOOR_EMBED_SCRIPT}
        DEPENDS ${files} ${BRINMOOR_EMBED_SCRIPT}
        VERBATIM)
    set(${out} ${source} PARENT_SCOPE)
endfunction()
