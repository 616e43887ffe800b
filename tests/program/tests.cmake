# These drive the built program on the display they find, one at a time.
if(Qt6_FOUND)
    foreach(name whole_program every_command)
        add_test(NAME ${name}
            COMMAND /usr/bin/python3 -B ${CMAKE_CURRENT_SOURCE_DIR}/program/${name}.py
                    ${CMAKE_BINARY_DIR})
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK display)
    endforeach()
endif()
