if(TARGET qtplatform)
    varno_test(line_test line/faults_test.cpp line/main.cpp line/port_test.cpp line/transfers_test.cpp
        LINKS link qtplatform indicator_line)
    # Prints the speed figures of the link; run by hand and by the benchmark script.
    varno_program(bench_link line/bench_link.cpp LINKS link qtplatform indicator_line GTest::gtest)
    add_dependencies(bench_link varno-indicator)
endif()
