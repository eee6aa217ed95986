# Read by cpack before anything else. Without dpkg-shlibdeps cpack would make a package that depends on nothing, and say so
# only in passing.
cmake_policy(VERSION 3.25)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
foreach(tool dpkg-shlibdeps dpkg-deb gzip)
  string(MAKE_C_IDENTIFIER "path of ${tool}" path)
  find_program(${path} ${tool} NO_CACHE)
  if(NOT ${path})
    message(FATAL_ERROR "${tool} is missing, and without it there is no package (on Debian: apt-get install dpkg-dev gzip)")
  endif()
endforeach()
