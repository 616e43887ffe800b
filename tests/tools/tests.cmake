varno_test(tickets_check_test tools/check_test.cpp LINKS tickets_check)

add_test(NAME varno_tickets
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tools/end_to_end.sh
        $<TARGET_FILE:varno-tickets> ${PROJECT_SOURCE_DIR}/samples)
