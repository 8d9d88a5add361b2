# Fails where the code, the README, the manual and the completions of ROOT name different options, exit codes or
# languages.

# Sets `result` to what the group of `pattern` finds in those parts of `file` that match `part`, sorted.
function(find_words result file part pattern)
  file(READ ${ROOT}/${file} text)
  string(REGEX MATCHALL "${part}" parts "${text}")
  string(REGEX MATCHALL "${pattern}" words "${parts}")
  list(TRANSFORM words REPLACE "${pattern}" "\\1")
  list(REMOVE_DUPLICATES words)
  list(SORT words)
  if(NOT words)
    message(SEND_ERROR "${file} has no ${pattern}")
  endif()
  set(${result} "${words}" PARENT_SCOPE)
endfunction()

function(expect_words expected file part pattern)
  find_words(words "${file}" "${part}" "${pattern}")
  if(NOT words STREQUAL expected)
    message(SEND_ERROR "${file} has\n  ${words}\nand should have\n  ${expected}")
  endif()
endfunction()

set(option "[A-Za-z_]+")
find_words(options src/app/command_line.cpp ".+" "Option{\"-(${option})\"")
expect_words("${options}" README.md "\n[|] `-[^|]*" "`-(${option})")
expect_words("${options}" man/zev.1 "SYNOPSIS.*[.]Sh DESCRIPTION" "Fl (${option})")
expect_words("${options}" man/zev.1 ".+" "[.]It Fl (${option})")
expect_words("${options}" completions/bash/zev "answers='-[^']*" "-(${option})")
expect_words("${options}" completions/zsh/_zev "\n +'-${option}" "-(${option})")
expect_words("${options}" completions/fish/zev.fish ".+" " -o (${option})")

find_words(codes src/app/exit_code.h ".+" "int [A-Za-z]+ = ([0-9]+)")
list(REMOVE_ITEM codes 5)  # never leaves the process
expect_words("${codes}" man/zev.1 "EXIT STATUS.*[.]Sh EXAMPLES" "[.]It Sy ([0-9]+)")

set(language "[a-z][a-z](_[A-Z]+)?")
file(GLOB languages RELATIVE ${ROOT} ${ROOT}/samples/licenses/LA_*.txt)
list(TRANSFORM languages REPLACE ".*LA_(.*)[.]txt" "\\1")
list(SORT languages)
expect_words("${languages}" man/zev-licenses.5 ".+" "[.]It Li (${language})")
expect_words("${languages}" completions/bash/zev "'cs [^']*" "(${language})")
expect_words("${languages}" completions/zsh/_zev "\\(cs [^)]*" "(${language})")
expect_words("${languages}" completions/fish/zev.fish "'cs [^']*" "(${language})")
expect_words("${languages}" cmake/ZevLicenseSet.cmake "languages( [a-z][a-z](_[A-Z]+)?)+\\)" " (${language})")
