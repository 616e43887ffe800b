// The window of the history: the copies, what differs between one of them and what is open now, and
// its tickets on paper. Nothing is changed from here but by Open and Save copy as.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "block/ticket_block.h"
#include "codec/ticket_text.h"
#include "history/copy_rows.h"
#include "paper/paper.h"
#include "platform/announce.h"
#include "platform/paper_view.h"
#include "platform/platform.h"
#include "platform/rich_text.h"

namespace varno {

// What the history looks at and asks for in the main window.
struct OpenWork {
    Window& window;
    RichTextBox& RichText;
    const TicketBlock& block;
    CodeComment comment;
    std::function<bool()> isKeeping;       // copies are still being made
    std::function<std::string()> missing;  // what is not kept, and why; empty if nothing
    // Puts the copy of these bytes in the place of what is open; false if it cannot be opened.
    std::function<bool(const Copy&, const std::string& bytes)> open;
    // Asks where to save the copy of these bytes and saves it.
    std::function<void(const Copy&, const std::string& bytes)> saveAs;
};

class HistoryWindow {
  public:
    HistoryWindow(Platform& platform, OpenWork work);

    void ShowHistory_Click();
    void On(CommandEvent event);

  private:
    void Form_Load();
    void ConnectEvents();
    void Form_Resize();
    void PauseTimer_Timer();
    void LearnTimer_Timer();
    void Find_Change();
    void Copies_Click();
    void CopyTicket_Click();
    void OpenButton_Click();
    void SaveCopyButton_Click();
    void Leave();
    void BackToWork();

    bool IsShown() const { return window_ && window_->IsShown(); }
    void ReadCopies();
    void UpdateSoon();
    void ShowRows();
    void ShowSummary();
    void ReadChosen();
    void Compare();
    void ShowTickets(const std::vector<int>& numbers);
    void ShowPaper();
    std::vector<std::string> DifferencesOfChosen() const;

    Platform& platform_;
    OpenWork work_;
    History history_;
    CopyTime started_;                // of the program
    std::unique_ptr<Window> window_;  // null until first shown
    Table* copies_ = nullptr;
    Table* differences_ = nullptr;
    DropDownList* copyTicket_ = nullptr;
    PaperView* paper_ = nullptr;
    CopyRows rows_;
    std::optional<Copy> chosen_;
    std::string content_;                 // of the chosen copy
    MarkedText ticket_;                   // of the chosen copy, if it is one of a ticket
    Error unreadable_;                    // why it could not be read
    std::vector<int> tickets_;            // of the chosen copy, as the list of its tickets has them
    std::vector<std::string> sentences_;  // what differs
    Effects effects_;
    bool areCopiesStale_ = false;  // there may be others than are shown
};

}  // namespace varno
