# corvane_add_test(<name> <source> [gui]): one Qt Test executable per subject, run headless
# with a fixed locale so that formatting tests do not depend on the machine.
function(corvane_add_test name source)
  add_executable(${name} ${source})
  if("gui" IN_LIST ARGN)
    target_link_libraries(${name} PRIVATE corvane_gui corvane_testsupport Qt6::Test)
  else()
    target_link_libraries(${name} PRIVATE corvane_core corvane_testsupport Qt6::Test)
  endif()
  # Tests may start from the delivered recipe book.
  add_dependencies(${name} corvane_data)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANG=C.UTF-8;TZ=UTC"
    TIMEOUT 120)
endfunction()
