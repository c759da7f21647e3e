# Compiler settings shared by every target of this project.
#
# __FILE__ is mapped to a path relative to the source tree, so the locations
# recorded by exceptions read "core/dataobjects/ImageData.cpp" on every machine.
function(dataobjects_target_options target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
  if(DATAOBJECTS_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

if(DATAOBJECTS_SANITIZE AND DATAOBJECTS_THREAD_SANITIZER)
  message(FATAL_ERROR "AddressSanitizer and ThreadSanitizer cannot be combined")
endif()
if(DATAOBJECTS_THREAD_SANITIZER)
  add_compile_options(-fsanitize=thread)
  add_link_options(-fsanitize=thread)
endif()
if(DATAOBJECTS_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzzers need clang: configure with CXX=clang++")
  endif()
  # Every library is instrumented for coverage and checked by AddressSanitizer.
  add_compile_options(-fsanitize=fuzzer-no-link,address -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address)
endif()
if(DATAOBJECTS_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# Installs a library target with its headers, which keep their layer folder
# below the include root so that "basis/Exception.h" works when installed.
function(dataobjects_install_library target layer)
  install(TARGETS ${target} EXPORT DataObjectsTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${layer}
          FILES_MATCHING PATTERN "*.h")
endfunction()
