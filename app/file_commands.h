// Tickets and blocks on disk: the commands of the File menu, and opening a file by its path.
#pragma once

#include <string>
#include <utility>

#include "app/safekeeping.h"
#include "app/working_state.h"
#include "platform/announce.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/rich_text.h"

namespace varno {

struct FileControls {
    RichTextBox& RichText;
    ListBox& TicketList;
    TextBox& TicketNumber;
    Label& TicketName;  // the ticket file, without folder and extension; empty without one
    Label& ListName;    // the block file likewise; one blank without one
    Label& Message;
};

class FileCommands {
  public:
    FileCommands(const FileControls& controls, Dialogs& dialogs, WorkingState& state,
                 Safekeeping& safekeeping, Announce announce)
        : controls_(controls),
          dialogs_(dialogs),
          state_(state),
          safekeeping_(safekeeping),
          announce_(std::move(announce)) {}

    void FileMenu_Click();
    void LoadTicket_Click();
    void SaveTicket_Click();
    void SaveTicketAs_Click();
    void LoadList_Click();
    void SaveList_Click();

    // Asks where to save a document of this name and saves it.
    void SavePdfAs(const std::string& name, const std::string& bytes);

    // Opens a copy of the history as unsaved work, after the question about what is open. Its file
    // may hold something newer: saving it asks for a name first.
    [[nodiscard]] Error OpenCopy(const Copy& copy, const std::string& bytes);
    // Asks where to save a copy of the history and saves it.
    void SaveCopyAs(const Copy& copy, const std::string& bytes);

    // The unsaved-changes questions, with Yes and No; asked only while there is something to lose.
    void AskToSaveTicket();
    void AskToSaveBlock();

    // A file that cannot be read changes nothing. The list keeps the rows it has: whoever opens a
    // block over another clears it first.
    [[nodiscard]] Error OpenTicketFile(const std::string& path);
    [[nodiscard]] Error OpenBlockFile(const std::string& path);

  private:
    struct Kind;
    static const Kind TicketKind;
    static const Kind BlockKind;
    static const Kind PdfKind;

    std::optional<ChosenFile> ChooseNewFile(const Kind& kind, const std::string& folder,
                                            const std::string& name);
    bool ConfirmOverwriting(const ChosenFile& chosen);
    bool Write(const Kind& kind, const std::string& path, const std::string& bytes);
    std::string TicketBytes() const;
    Error OpenTicketCopy(const Copy& copy, const std::string& bytes);
    void OpenBlockCopy(const Copy& copy, const std::string& bytes);

    FileControls controls_;
    Dialogs& dialogs_;
    WorkingState& state_;
    Safekeeping& safekeeping_;
    Announce announce_;
    bool isCopy_ = false;  // the ticket is a copy, its name no file that the operator chose
};

}  // namespace varno
