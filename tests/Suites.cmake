# merlu_discover_suites(TARGET [PREFIX TEXT] [FILTER PATTERN] PROPERTIES NAME VALUE ...)
#
# Makes one ctest entry of every suite of a GoogleTest program, listed after each build. A start of the program costs
# more than most tests, so an entry for each test would be mostly starts. A failed entry's output names the test.
# An entry that ran no test fails.

if(CMAKE_SCRIPT_MODE_FILE)
  # run after the build: -DPROGRAM= -DFILTER= -DOUT=
  execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${PROGRAM} --gtest_list_tests
                          --gtest_filter=${FILTER}
    OUTPUT_VARIABLE listed RESULT_VARIABLE failed TIMEOUT 60)
  if(failed)
    message(FATAL_ERROR "${PROGRAM} does not list its tests: ${failed}")
  endif()
  string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." suites "${listed}")
  list(TRANSFORM suites REPLACE "[\n.]" "")
  list(REMOVE_DUPLICATES suites)
  if(NOT suites)
    message(FATAL_ERROR "${PROGRAM} has no tests")
  endif()
  file(WRITE ${OUT} "set(suites ${suites})\n")
  return()
endif()

set(MERLU_SUITES_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

function(merlu_discover_suites target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "PREFIX;FILTER" "PROPERTIES")
  if(NOT arg_FILTER)
    set(arg_FILTER "*")
  endif()
  set(listed ${CMAKE_CURRENT_BINARY_DIR}/${arg_PREFIX}${target}_suites.cmake)
  set(entries ${CMAKE_CURRENT_BINARY_DIR}/${arg_PREFIX}${target}_entries.cmake)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> -DFILTER=${arg_FILTER} -DOUT=${listed}
            -P ${MERLU_SUITES_SCRIPT}
    BYPRODUCTS ${listed}
    VERBATIM)
  set(properties)
  foreach(word IN LISTS arg_PROPERTIES)
    string(APPEND properties " [==[${word}]==]")
  endforeach()
  if(MERLU_SANITIZE)
    string(APPEND properties " TIMEOUT 3000")  # the last one counts; the sanitizers take their time
  endif()
  file(GENERATE OUTPUT ${entries} CONTENT
"if(EXISTS [==[${listed}]==])
  include([==[${listed}]==])
  foreach(suite IN LISTS suites)
    add_test(\"${arg_PREFIX}\${suite}\" [==[$<TARGET_FILE:${target}>]==] \"--gtest_filter=\${suite}.*\" --gtest_brief=1)
    set_tests_properties(\"${arg_PREFIX}\${suite}\" PROPERTIES FAIL_REGULAR_EXPRESSION \" 0 tests from 0 test suites\"${properties})
  endforeach()
else()
  add_test(${arg_PREFIX}${target}_NOT_BUILT ${target}_NOT_BUILT)
endif()
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${entries})
endfunction()
