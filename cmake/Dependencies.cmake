# The libraries behind SkinKit/Platform. Each is linked statically where the system has it so, since
# every shared one costs each start of a program a part of a millisecond.

function(skinkit_find_library target header)
  find_path(${target}_INCLUDE ${header} REQUIRED)
  find_library(${target}_LIBRARY NAMES ${ARGN} REQUIRED)
  add_library(${target} UNKNOWN IMPORTED)
  set_target_properties(${target} PROPERTIES IMPORTED_LOCATION ${${target}_LIBRARY})
  target_include_directories(${target} INTERFACE ${${target}_INCLUDE})
endfunction()

skinkit_find_library(Dependency::deflate libdeflate.h libdeflate.a deflate)
skinkit_find_library(Dependency::z zlib.h libz.a z)
skinkit_find_library(Dependency::png png.h libpng16.a png16)
target_link_libraries(Dependency::png INTERFACE Dependency::z m)
skinkit_find_library(Dependency::utf8proc utf8proc.h libutf8proc.a utf8proc)
target_compile_definitions(Dependency::utf8proc INTERFACE UTF8PROC_STATIC)
skinkit_find_library(Dependency::md md5.h libmd.a md)
skinkit_find_library(Dependency::seccomp seccomp.h libseccomp.a seccomp)
skinkit_find_library(Dependency::zip zip.h libzip.a zip)

find_package(nlohmann_json REQUIRED)
