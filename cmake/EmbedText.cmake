# Writes SOURCE: for each NAME=FILE of ENTRIES (separated by "|") the file's text as a raw literal.

string(REPLACE "|" ";" entries "${ENTRIES}")
file(WRITE ${SOURCE} "#include \"${HEADER}\"\n\nnamespace ${NAMESPACE} {\n")
foreach(entry IN LISTS entries)
    string(REGEX MATCH "^([^=]*)=(.*)$" matched "${entry}")
    set(name ${CMAKE_MATCH_1})
    file(READ ${CMAKE_MATCH_2} text)
    file(APPEND ${SOURCE} "\nconst std::string_view ${name} = R\"embedded(")
    file(APPEND ${SOURCE} "${text}")
    file(APPEND ${SOURCE} ")embedded\";\n")
endforeach()
file(APPEND ${SOURCE} "\n} // namespace ${NAMESPACE}\n")
