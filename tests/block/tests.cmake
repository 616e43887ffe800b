varno_test(block_test
    block/image_test.cpp
    block/keys_test.cpp
    block/list_test.cpp
    block/put_delete_test.cpp
    LINKS block)
