if(Qt6_FOUND)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    varno_test(window_editor_test
        window/editor_test.cpp
        window/qt_main.cpp
        LINKS editor qtplatform Qt6::Test)
    varno_test(window_test
        window/files_test.cpp
        window/look_test.cpp
        window/qt_main.cpp
        window/start_close_test.cpp
        window/states_test.cpp
        LINKS app qtplatform Qt6::Test)
    target_compile_definitions(window_test PRIVATE VARNO_CATALOGUES="${PROJECT_SOURCE_DIR}/samples")
endif()
