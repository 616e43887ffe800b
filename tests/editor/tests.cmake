varno_test(editor_test
    editor/key_test.cpp
    editor/picker_test.cpp
    LINKS editor)
