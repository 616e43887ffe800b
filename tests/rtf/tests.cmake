set(rtf_tests ${CMAKE_CURRENT_LIST_DIR})
varno_test(rtf_test
    ${rtf_tests}/damage_test.cpp
    ${rtf_tests}/document_test.cpp
    ${rtf_tests}/reader_test.cpp
    ${rtf_tests}/writer_test.cpp
    LINKS rtf)

# LibreOffice and AbiWord read what we write, and we read what they write.
varno_test(rtf_other_programs_test ${rtf_tests}/other_programs_test.cpp LINKS rtf)
target_compile_definitions(rtf_other_programs_test PRIVATE RTF_TESTS="${rtf_tests}")
