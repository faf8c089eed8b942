# What most files of the tests and the workbench include takes longer to read than the files themselves: it is read once
# for all of them. Each set is an executable, so that it is compiled the way the programs that use it are.

# vetra_precompiled(NAME [OPTIONS option...] HEADERS header... LIBRARIES target...)
function(vetra_precompiled name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "OPTIONS;HEADERS;LIBRARIES")
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "int main() {}\n")
  add_executable(${name} ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE vetra_options ${arg_LIBRARIES})
  target_compile_options(${name} PRIVATE ${arg_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()
