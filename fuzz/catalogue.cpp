// Catalogues: every row has a code and a comment.
#include "codec/catalogue.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    static const int file = memfd_create("catalogue", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    Must(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size));
    std::vector<CatalogueRow> rows;
    Must(LoadCatalogue(path, rows).empty());
    for (const CatalogueRow& row : rows) {
        Must(row.text.size() <= size && row.text.substr(3, 1) == u" ");
        Must(row.Code() + u" " + row.Comment() == row.text);
    }
    for (Word number = 0; number < 1000; number += 111) {
        Must(FindCodeComment({path, ""}, static_cast<Word>(ControlCode + number)).size() <= size);
    }
    return 0;
}
