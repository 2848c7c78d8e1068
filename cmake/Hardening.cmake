# What makes a mistake in memory harder to abuse. The sanitizers find such mistakes instead.
if(NOT MERLU_SANITIZE)
  target_link_options(merlu_options INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  # what checks calls of the library needs an optimizing compiler
  string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
  if("${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${build_type}}" MATCHES "-O[1-3s]")
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    target_compile_options(merlu_options INTERFACE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
      # with them this compiler version gives false alarms on concatenated strings
      $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds>)
  endif()
endif()
