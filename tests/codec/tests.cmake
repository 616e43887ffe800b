varno_test(codec_test
    codec/catalogue_test.cpp
    codec/character_test.cpp
    codec/codec_test.cpp
    codec/editor_test.cpp
    LINKS codec)
