# SPDX-License-Identifier: MIT
# Collects the C++ of the documents: every ```cpp block, and in tables the code of the last column.
#
# A block with a main function becomes a source of its own; every other one a function that finds what
# docs/README.md tells in place. Compilers name the line in the document.

# Writes a file unless it is what it was, so that nothing is compiled again for nothing.
function(write_if_different file content)
    set(old)
    if(EXISTS ${file})
        file(READ ${file} old)
    endif()
    if(NOT old STREQUAL content)
        file(WRITE ${file} "${content}")
    endif()
endfunction()

# Sets `line` to the number of the line on which `rest` begins, given the whole text.
function(line_number line text rest)
    string(LENGTH "${text}" all)
    string(LENGTH "${rest}" remaining)
    math(EXPR length "${all} - ${remaining}")
    string(SUBSTRING "${text}" 0 ${length} before)
    string(REGEX MATCHALL "\n" ends "${before}")
    list(LENGTH ends count)
    math(EXPR count "${count} + 1")
    set(${line} ${count} PARENT_SCOPE)
endfunction()

# Adds `code` from line `line` of `page` to `functions` and `table` of the calling scope.
macro(add_snippet line code)
    set(snippet_includes)
    string(REGEX MATCHALL "#include [^\n]*" snippet_includes "${code}")
    string(REGEX REPLACE "#include [^\n]*" "" body "${code}")
    list(APPEND includes ${snippet_includes})
    string(APPEND functions "
static void ${name}_${line}(Page& page) {
    auto& plot = page.plot;
    auto& view = page.view;
    auto& window = page.window;
    auto& line = page.line;
    auto &x = page.x, &y = page.y;
    const double t = 1.0, v = 2.0, px = 100.0;
    {
#line ${line} \"${page}\"
${body}
    }
}
")
    string(APPEND table "    snippets.push_back({\"${page}:${line}\", ${name}_${line}});\n")
endmacro()

# Writes the sources made of one document below `folder` and sets `sources` and `programs`.
function(collect_snippets page folder)
    cmake_path(GET page STEM name)
    string(MAKE_C_IDENTIFIER ${name} name)
    file(READ ${page} text)
    set(includes)
    set(functions)
    set(table)
    set(made_programs)

    set(rest "${text}")
    string(FIND "${rest}" "\n```cpp\n" from)
    while(from GREATER_EQUAL 0)
        math(EXPR from "${from} + 8")
        string(SUBSTRING "${rest}" ${from} -1 rest)
        line_number(line "${text}" "${rest}")
        string(FIND "${rest}" "```" to)
        string(SUBSTRING "${rest}" 0 ${to} code)
        if(code MATCHES "int main\\(")
            set(program ${folder}/${name}_${line}.cpp)
            write_if_different(${program} "#line ${line} \"${page}\"\n${code}")
            list(APPEND made_programs ${program})
        else()
            add_snippet(${line} "${code}")
        endif()
        string(FIND "${rest}" "\n```cpp\n" from)
    endwhile()

    string(REGEX MATCHALL "\n\\| `" rows "${text}")
    list(LENGTH rows rows)
    set(compiled_rows 0)
    set(rest "${text}")
    while(rest MATCHES "\n\\| `[^\n]*` \\| `([^`\n]*;)` \\|")
        set(code "${CMAKE_MATCH_1}")
        string(FIND "${rest}" "${CMAKE_MATCH_0}" from)
        math(EXPR from "${from} + 1")
        string(SUBSTRING "${rest}" ${from} -1 rest)
        line_number(line "${text}" "${rest}")
        add_snippet(${line} "${code}")
        math(EXPR compiled_rows "${compiled_rows} + 1")
    endwhile()
    if(compiled_rows GREATER 0 AND NOT compiled_rows EQUAL rows)
        message(FATAL_ERROR "${page}: of ${rows} rows, only ${compiled_rows} tell code to compile.")
    endif()

    set(made)
    if(functions)
        list(REMOVE_DUPLICATES includes)
        list(JOIN includes "\n" includes)
        set(made ${folder}/${name}.cpp)
        write_if_different(${made} "#include \"Page.h\"\n${includes}\n${functions}
#line 1 \"${made}\"
void add_${name}(std::vector<Snippet>& snippets) {\n${table}}\n")
    endif()
    set(source ${made} PARENT_SCOPE)
    set(programs ${made_programs} PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${pages})
set(snippets_folder ${CMAKE_CURRENT_BINARY_DIR}/snippets)
set(snippet_sources)
set(snippet_programs)
set(declarations)
set(calls)
foreach(page ${pages})
    collect_snippets(${page} ${snippets_folder})
    list(APPEND snippet_programs ${programs})
    if(source)
        list(APPEND snippet_sources ${source})
        cmake_path(GET source STEM name)
        string(APPEND declarations "void add_${name}(std::vector<Snippet>& snippets);\n")
        string(APPEND calls "    add_${name}(snippets);\n")
    endif()
endforeach()
write_if_different(${snippets_folder}/all.cpp "#include \"Page.h\"\n${declarations}
std::vector<Snippet> allSnippets() {\n    std::vector<Snippet> snippets;\n${calls}    return snippets;\n}\n")
