#include "app/file_commands.h"

#include "app/path_rules.h"
#include "block/block_file.h"
#include "block/ticket_list_view.h"
#include "block/unsaved_question.h"
#include "codec/text_limits.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"

namespace varno {

struct FileCommands::Kind {
    const char* extension;
    const char* filter;
    std::optional<CopyKind> kept;  // as what the history keeps a file that is replaced
};

const FileCommands::Kind FileCommands::TicketKind{"VRT", "Varno Ticket|*.VRT", CopyKind::Ticket};
const FileCommands::Kind FileCommands::BlockKind{"VRB", "Varno ticket block|*.VRB",
                                                 CopyKind::Block};
const FileCommands::Kind FileCommands::PdfKind{"pdf", "PDF document|*.pdf", {}};

namespace {

// A bare name without the extension letters leaves the label as it is; false then.
bool ShowName(Label& label, const std::string& bareName, const char* extension) {
    const std::optional<std::string> name = LabelForm(bareName, extension);
    if (name) {
        label.SetCaption(*name);
    }
    return name.has_value();
}

}  // namespace

Error FileCommands::OpenTicketFile(const std::string& path) {
    std::string bytes;
    if (Error error = ReadFile(path, bytes, MostTicketFileBytes + 1)) {
        return error;
    }
    MarkedText ticket;
    if (Error error = LoadMarkedText(bytes, ticket)) {
        return path + ": " + *error;
    }
    controls_.RichText.SetContent(ticket);
    if (ShowName(controls_.TicketName, BareName(path), TicketKind.extension)) {
        state_.TicketChanged = false;
        isCopy_ = false;
    }
    return std::nullopt;
}

Error FileCommands::OpenBlockFile(const std::string& path) {
    if (Error error = ReadBlockFile(path, state_.block.TicketBuffer)) {
        return error;
    }
    ParseTicketBuffer(state_.block, controls_.TicketList, controls_.Message);
    if (ShowName(controls_.ListName, BareName(path), BlockKind.extension)) {
        state_.block.BlockChanged = false;
    }
    return std::nullopt;
}

void FileCommands::AskToSaveTicket() {
    if (controls_.RichText.HasText()) {
        AskToSave(dialogs_, UnsavedTicket, Buttons::YesNo, state_.TicketChanged,
                  [this] { SaveTicket_Click(); });
    }
}

void FileCommands::AskToSaveBlock() {
    if (controls_.TicketList.ListCount() > 0) {
        AskToSave(dialogs_, UnsavedBlock, Buttons::YesNo, state_.block.BlockChanged,
                  [this] { SaveList_Click(); });
    }
}

void FileCommands::FileMenu_Click() {
    announce_(CommandEvent::FileMenuOpens);
}

void FileCommands::LoadTicket_Click() {
    AskToSaveTicket();
    const auto chosen = dialogs_.ShowOpen({.initDir = state_.folders.LoadTicketFolder,
                                           .fileName = "*.VRT",
                                           .defaultExt = TicketKind.extension,
                                           .filter = TicketKind.filter});
    if (!chosen) {
        return;
    }
    announce_(CommandEvent::TicketOpens);
    (void)OpenTicketFile(chosen->fileName);  // says nothing when it fails
    state_.folders.LoadTicketFolder = FolderOf(chosen->fileName, chosen->fileTitle);
    controls_.TicketNumber.SetText("");
}

void FileCommands::LoadList_Click() {
    AskToSaveBlock();
    const auto chosen = dialogs_.ShowOpen({.initDir = state_.folders.LoadListFolder,
                                           .fileName = "*.VRB",
                                           .defaultExt = BlockKind.extension,
                                           .filter = BlockKind.filter});
    if (!chosen) {
        return;
    }
    announce_(CommandEvent::BlockOpens);
    controls_.TicketList.Clear();
    (void)OpenBlockFile(chosen->fileName);  // says nothing when it fails
    state_.folders.LoadListFolder = FolderOf(chosen->fileName, chosen->fileTitle);
    announce_(CommandEvent::BlockOpened);
}

void FileCommands::SaveTicket_Click() {
    const std::string name = controls_.TicketName.Caption();
    if (name.empty() || isCopy_) {
        SaveTicketAs_Click();
    } else if (Write(TicketKind, state_.folders.SaveTicketFolder + name + ".VRT", TicketBytes())) {
        state_.TicketChanged = false;
        announce_(CommandEvent::TicketSaved);
    }
}

void FileCommands::SaveTicketAs_Click() {
    const auto chosen = ChooseNewFile(TicketKind, state_.folders.SaveTicketFolder,
                                      controls_.TicketName.Caption() + ".VRT");
    if (!chosen || !Write(TicketKind, chosen->fileName, TicketBytes())) {
        return;
    }
    if (ShowName(controls_.TicketName, chosen->fileTitle, TicketKind.extension)) {
        isCopy_ = false;
    }
    state_.folders.SaveTicketFolder = FolderOf(chosen->fileName, chosen->fileTitle);
    state_.TicketChanged = false;
    announce_(CommandEvent::TicketSaved);
}

void FileCommands::SaveList_Click() {
    const auto chosen = ChooseNewFile(BlockKind, state_.folders.SaveListFolder,
                                      controls_.ListName.Caption() + ".VRB");
    if (!chosen || !Write(BlockKind, chosen->fileName, BlockFileBytes(state_.block.TicketBuffer))) {
        return;
    }
    ShowName(controls_.ListName, chosen->fileTitle, BlockKind.extension);
    state_.folders.SaveListFolder = FolderOf(chosen->fileName, chosen->fileTitle);
    state_.block.BlockChanged = false;
    announce_(CommandEvent::BlockSaved);
}

Error FileCommands::OpenCopy(const Copy& copy, const std::string& bytes) {
    Error error;
    if (copy.kind == CopyKind::Ticket) {
        error = OpenTicketCopy(copy, bytes);
    } else {
        OpenBlockCopy(copy, bytes);
    }
    if (!error && copy.cause == Cause::Unsaved) {
        safekeeping_.Resume(copy);
    }
    return error;
}

Error FileCommands::OpenTicketCopy(const Copy& copy, const std::string& bytes) {
    MarkedText ticket;
    if (Error error = LoadMarkedText(bytes, ticket)) {
        return error;
    }
    AskToSaveTicket();
    announce_(CommandEvent::TicketOpens);
    controls_.RichText.SetContent(ticket);
    controls_.TicketName.SetCaption(copy.name);
    controls_.TicketNumber.SetText("");
    state_.TicketChanged = true;
    isCopy_ = true;
    return std::nullopt;
}

void FileCommands::OpenBlockCopy(const Copy& copy, const std::string& bytes) {
    AskToSaveBlock();
    announce_(CommandEvent::BlockOpens);
    controls_.TicketList.Clear();
    state_.block.TicketBuffer = ImageIn(bytes);
    ParseTicketBuffer(state_.block, controls_.TicketList, controls_.Message);
    controls_.ListName.SetCaption(copy.name.empty() ? " " : copy.name);
    state_.block.BlockChanged = true;
    announce_(CommandEvent::BlockOpened);
}

void FileCommands::SaveCopyAs(const Copy& copy, const std::string& bytes) {
    const bool isBlock = copy.kind == CopyKind::Block;
    const Kind& kind = isBlock ? BlockKind : TicketKind;
    const std::string& folder =
        isBlock ? state_.folders.SaveListFolder : state_.folders.SaveTicketFolder;
    if (const auto chosen = ChooseNewFile(kind, folder, copy.name + "." + kind.extension)) {
        Write(kind, chosen->fileName, bytes);
    }
}

void FileCommands::SavePdfAs(const std::string& name, const std::string& bytes) {
    if (const auto chosen = ChooseNewFile(PdfKind, state_.folders.SaveTicketFolder, name)) {
        Write(PdfKind, chosen->fileName, bytes);
    }
}

// Nothing when the dialog was cancelled. No to overwriting opens the dialog again.
std::optional<ChosenFile> FileCommands::ChooseNewFile(const Kind& kind, const std::string& folder,
                                                      const std::string& name) {
    for (;;) {
        auto chosen = dialogs_.ShowSave({.initDir = folder,
                                         .fileName = name,
                                         .defaultExt = kind.extension,
                                         .filter = kind.filter});
        if (!chosen || ConfirmOverwriting(*chosen)) {
            return chosen;
        }
    }
}

bool FileCommands::ConfirmOverwriting(const ChosenFile& chosen) {
    if (!FileExists(FileMeantBy(chosen.fileName))) {
        return true;
    }
    const std::string question = "\"" + chosen.fileTitle + "\" exists.\r\n\r\nOverwrite?";
    return dialogs_.ShowMessage(question, "Existing File", Buttons::YesNo, Icon::Question) ==
           Answer::Yes;
}

// Says why when the file cannot be written; the old one is whole then.
bool FileCommands::Write(const Kind& kind, const std::string& path, const std::string& bytes) {
    const std::string meant = FileMeantBy(path);
    const Error unkept = kind.kept ? safekeeping_.BeforeReplacing(meant, *kind.kept) : std::nullopt;
    if (const Error error = WriteFile(meant, bytes)) {
        dialogs_.ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
        return false;
    }
    if (kind.kept) {
        safekeeping_.AfterReplacing(unkept);
    }
    return true;
}

std::string FileCommands::TicketBytes() const {
    return WriteRtf(controls_.RichText.Content());
}

}  // namespace varno
