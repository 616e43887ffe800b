if(TARGET qtplatform)
    varno_test(line_test line/faults_test.cpp line/main.cpp line/port_test.cpp line/transfers_test.cpp
        LINKS link qtplatform indicator_line)
endif()
