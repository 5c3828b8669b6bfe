# SPDX-License-Identifier: MIT
# Makes the manual page of a program from what the program says with --help and from a text with the rest, in the
# format of help2man. "@FINDINGS@" in the text becomes the tables of findings in docs/TOOLS.md, "@COMMANDS@" its table
# of commands.
#   cmake -DHELP2MAN=<program> -DPROGRAM=<program> -DVERSION=<version> -DTEXT=<h2m file> -DTABLES=<TOOLS.md>
#         -DOUTPUT=<page> -P MakeManual.cmake
file(READ ${TEXT} text)

# "| Keys | |" is the head of a table, "| `unknown-key` | a key that the block does not have |" a row.
file(STRINGS ${TABLES} rows REGEX "^\\| (`[a-z-]+` \\| .*|[A-Z][A-Za-z ]* \\| )\\|$")
set(findings "")
set(heading "")
foreach(row IN LISTS rows)
  if(row MATCHES "^\\| ([A-Z][A-Za-z ]*) \\| \\|$")
    set(heading ".SS ${CMAKE_MATCH_1}\n")
  elseif(row MATCHES "^\\| `([a-z-]+)` \\| (.*) \\|$")
    set(code "${CMAKE_MATCH_1}")
    string(REPLACE "-" "\\-" code "${code}")
    string(APPEND findings "${heading}.TP\n.B ${code}\n${CMAKE_MATCH_2}\n")
    set(heading "")
  endif()
endforeach()
string(REPLACE "@FINDINGS@\n" "${findings}" text "${text}")

# "| Play | Loop | L | Plays a region again and again. |" is a row of the table of commands.
set(commands "")
set(menu "")
file(STRINGS ${TABLES} rows REGEX "^\\| (File|Edit|Play|View|Help) \\| ")
foreach(row IN LISTS rows)
  if(row MATCHES "^\\| ([A-Za-z]+) \\| ([^|]+) \\| ([^|]+) \\| ([^|]+) \\|$")
    if(NOT menu STREQUAL CMAKE_MATCH_1)
      set(menu "${CMAKE_MATCH_1}")
      string(APPEND commands ".SS ${menu}\n")
    endif()
    string(REPLACE "-" "\\-" keys "${CMAKE_MATCH_3}")
    string(APPEND commands ".TP\n.B \"${keys}\"\n${CMAKE_MATCH_2}. ${CMAKE_MATCH_4}\n")
  endif()
endforeach()
string(REPLACE "..." "" commands "${commands}")
string(REPLACE "@COMMANDS@\n" "${commands}" text "${text}")
file(WRITE ${OUTPUT}.h2m "${text}")

# help2man passes over a pattern that matches nothing, so that an option's further text would be lost unseen.
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n/\\^[^\n]+/\n" patterns "${text}")
foreach(pattern IN LISTS patterns)
  string(REGEX REPLACE "^\n/\\^(.*)/\n$" "\n\\1" pattern "${pattern}")
  if(NOT help MATCHES "${pattern}")
    message(FATAL_ERROR "${TEXT}: nothing in \"${PROGRAM} --help\" matches${pattern}")
  endif()
endforeach()

execute_process(
  COMMAND ${HELP2MAN} --no-info --manual=Marlinex "--source=Marlinex ${VERSION}" --include=${OUTPUT}.h2m
          --output=${OUTPUT} ${PROGRAM}
  COMMAND_ERROR_IS_FATAL ANY)

# The month in which the page was made would make two builds of one version differ.
file(READ ${OUTPUT} page)
string(REGEX REPLACE "\n(\\.TH [^ ]+ \"1\") \"[^\"]*\"" "\n\\1 \"\"" page "${page}")
file(WRITE ${OUTPUT} "${page}")
