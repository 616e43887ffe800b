// What names of copies tell, the names of foreign files among them, and what any content holds.
#include "fuzz/fuzz.h"
#include "history/description.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    FuzzedDataProvider in(data, size);
    const std::string text = in.ConsumeRandomLengthString();
    const std::string port = in.ConsumeRandomLengthString(9);
    const Copy any{.cause = Cause::Uploaded, .port = port, .name = text};
    const std::string fileName = FileNameOf(any);
    Must(fileName.size() < 255 && fileName.find('/') == std::string::npos);
    for (const std::string& name : {fileName, text}) {
        const auto copy = CopyOfName(name);
        Must(copy ? FileNameOf(*copy) == name : name == text);
        Must(!copy || HeadingOf(*copy).when.size() == 19);
    }
    const Copy kept = CopyOfName(fileName).value_or(Copy{});
    Must(any.name.starts_with(kept.name) && kept.port == port);

    const std::string content = in.ConsumeRemainingBytesAsString();
    for (const CopyKind kind : {CopyKind::Block, CopyKind::Ticket}) {
        const CopyFindings findings = FindingsIn(kind, content);
        Must(Matches(SoundnessText(findings) + TicketsText(kind, findings), ""));
    }
    return 0;
}
