varno_test(link_test
    link/download_test.cpp
    link/ports_test.cpp
    link/settings_test.cpp
    link/terminal_test.cpp
    link/upload_test.cpp
    LINKS link)
varno_test(indicator_test link/indicator_test.cpp LINKS indicator_line)
