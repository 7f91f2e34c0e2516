# SPDX-License-Identifier: MIT
# Fails unless the C++ block of README.md is the program in examples/minimal, which is compiled.
file(READ ${repository}/README.md readme)
file(READ ${repository}/examples/minimal/main.cpp program)
string(FIND "${readme}" "```cpp\n" from)
string(SUBSTRING "${readme}" ${from} -1 rest)
string(REPLACE "```cpp\n" "" rest "${rest}")
string(FIND "${rest}" "```" to)
string(SUBSTRING "${rest}" 0 ${to} block)
string(REPLACE "// SPDX-License-Identifier: MIT\n" "" program "${program}")
if(NOT block STREQUAL program)
    message(FATAL_ERROR "README.md shows another program than examples/minimal/main.cpp:\n${block}")
endif()
