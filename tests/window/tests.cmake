if(Qt6_FOUND)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    varno_test(window_editor_test
        window/editor_test.cpp
        window/qt_main.cpp
        LINKS app qtplatform Qt6::Test)
    varno_test(window_test
        window/clipboard_test.cpp
        window/files_test.cpp
        window/look_test.cpp
        window/qt_main.cpp
        window/start_close_test.cpp
        window/states_test.cpp
        window/text_area_test.cpp
        LINKS app qtplatform Qt6::Test)
    varno_test(window_random_test
        window/qt_main.cpp
        window/random_test.cpp
        LINKS app qtplatform Qt6::Test)
    foreach(test window_editor_test window_test window_random_test)
        target_compile_definitions(${test} PRIVATE VARNO_CATALOGUES="${PROJECT_SOURCE_DIR}/samples")
    endforeach()
    # What the windows show, on screens of other scales.
    foreach(scale 1.5 2)
        add_test(NAME window_test_at_${scale} COMMAND window_test --gtest_filter=*Look*)
        set_tests_properties(window_test_at_${scale} PROPERTIES
            ENVIRONMENT "QT_SCALE_FACTOR=${scale}")
    endforeach()
endif()
