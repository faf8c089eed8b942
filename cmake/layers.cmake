# What every target of ours is compiled with, and the layers' include paths.
#
# Includes are written from the top ("host/gadgets.h"). So that a layer can include only the layers it may know, each
# layer has an include folder of its own in the build, which holds nothing but a link to that layer; a target sees the
# folders that it names in vetra_layer() and no others.

add_library(vetra_options INTERFACE)
# Designated initialisers leave out what has its usual value.
target_compile_options(vetra_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wno-missing-field-initializers -Werror -ffp-contract=off)
if(VETRA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# vetra_layer(TARGET layer...): lets TARGET include the named layers, keeps our warnings on.
function(vetra_layer target)
  target_link_libraries(${target} PRIVATE vetra_options)
  foreach(layer IN LISTS ARGN)
    set(folder ${CMAKE_BINARY_DIR}/include/${layer})
    if(NOT EXISTS ${folder}/${layer})
      file(MAKE_DIRECTORY ${folder})
      file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${layer} ${folder}/${layer} SYMBOLIC)
    endif()
    target_include_directories(${target} PRIVATE ${folder})
  endforeach()
endfunction()
