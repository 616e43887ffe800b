varno_test(app_test
    app/files_test.cpp
    app/layout_test.cpp
    app/path_rules_test.cpp
    LINKS app)
