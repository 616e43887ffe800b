// Encoder and decoder: a record shows a text that encodes to the same record.
#include "block/image.h"
#include "codec/decoder.h"
#include "codec/encoder.h"
#include "fuzz/fuzz.h"

namespace varno {
namespace {

std::string EncodedAgain(const std::string& record) {
    MemoryEditor editor;
    TicketDecoder().DecodeTicket(WordsOf(":" + record), 212, {}, editor);
    return EncodeTicket(editor.Marked(), 212);
}

}  // namespace
}  // namespace varno

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    FuzzedDataProvider in(data, size);
    const std::string record = EncodeTicket(AnyTicket(in), 212);
    Must(record.starts_with("08D4") && record.ends_with("1000") && record.size() % WordDigits == 0);
    Must(EncodedAgain(record) == record);
    const std::string shown = EncodedAgain("08D4" + in.ConsumeRemainingBytesAsString());
    Must(EncodedAgain(shown) == shown);
    return 0;
}
