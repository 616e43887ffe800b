# These drive the built program on the display they find, one at a time.
if(Qt6_FOUND)
    add_test(NAME whole_program
        COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/program/whole_program.py
                ${CMAKE_BINARY_DIR})
    set_tests_properties(whole_program PROPERTIES RESOURCE_LOCK display)
endif()
