# The libraries that SkinKit uses. Each is linked statically where the system has it so, since
# every shared one costs each start of a program a part of a millisecond.

function(skinkit_find_library target header)
  find_path(${target}_INCLUDE ${header} REQUIRED)
  find_library(${target}_LIBRARY NAMES ${ARGN} REQUIRED)
  add_library(${target} UNKNOWN IMPORTED)
  set_target_properties(${target} PROPERTIES IMPORTED_LOCATION ${${target}_LIBRARY})
  target_include_directories(${target} INTERFACE ${${target}_INCLUDE})
  set_property(GLOBAL APPEND PROPERTY dependencyFiles ${${target}_LIBRARY})
endfunction()

skinkit_find_library(Dependency::deflate libdeflate.h libdeflate.a deflate)
skinkit_find_library(Dependency::z zlib.h libz.a z)
skinkit_find_library(Dependency::png png.h libpng16.a png16)
target_link_libraries(Dependency::png INTERFACE Dependency::z m)
skinkit_find_library(Dependency::utf8proc utf8proc.h libutf8proc.a utf8proc)
target_compile_definitions(Dependency::utf8proc INTERFACE UTF8PROC_STATIC)
skinkit_find_library(Dependency::md md5.h libmd.a md)
skinkit_find_library(Dependency::seccomp seccomp.h libseccomp.a seccomp)

# What the library itself is linked with: here, and by name where it is installed.
set(skinkitDependencies Dependency::deflate Dependency::png Dependency::utf8proc Dependency::md)
set(skinkitLinkNames deflate png16 z m utf8proc md)

# Links a program without any shared library where the system has all of them static (and such a
# program runs, which sanitizers prevent), else without a shared C++ runtime. Loading
# and relocating them is a third of what a program costs that is done in milliseconds. The program is
# still loaded anywhere, since it reads files that nobody vouches for; that costs 0.06 ms.
include(CheckCXXSourceRuns)
function(skinkit_link_statically target)
  get_property(CMAKE_REQUIRED_LIBRARIES GLOBAL PROPERTY dependencyFiles)
  set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
  check_cxx_source_runs("int main() {}" canRunStaticPIE)
  if(canRunStaticPIE)
    target_link_options(${target} PRIVATE -static-pie)
  else()
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc)
  endif()
endfunction()
