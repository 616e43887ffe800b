// The preview: the ticket as it will look on paper, while it is written. Its window follows the
// editor and the list of tickets; it changes nothing in the main window but the caret, and that
// only when the operator clicks on the paper.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "block/ticket_block.h"
#include "codec/catalogue.h"
#include "platform/announce.h"
#include "platform/paper_view.h"
#include "platform/platform.h"
#include "platform/rich_text.h"
#include "preview/previewed_ticket.h"

namespace varno {

// What the preview looks at and asks for in the main window.
struct PreviewedWindow {
    Window& window;
    RichTextBox& RichText;
    ListBox& TicketList;
    const TicketBlock& block;
    const Catalogues& catalogues;
    std::function<void()> caretPlaced;  // by a click on the paper
    // Asks where to save the document and saves it; `name` is offered.
    std::function<void(const std::string& name, const std::string& bytes)> savePdf;
};

class Preview {
  public:
    Preview(Platform& platform, PreviewedWindow previewed);

    void ShowPreview_Click();
    void TellCaret_Click();  // in words, at the caret and to assistive technology
    void On(CommandEvent event);
    void RichText_SelChange();

  private:
    enum class Source { Editor, List };

    void Form_Load();
    void ConnectEvents();
    void ReadEffects();
    void Form_Resize();
    void PauseTimer_Timer();
    void PaperWidth_Click();
    void Paper_Click(PaperPlace place);
    void PrintButton_Click();
    void BackToTicket_Click();

    bool IsShown() const { return window_ && window_->IsShown(); }
    std::optional<int> SelectedTicket() const;
    void UpdateSoon();
    void Update();
    void ShowTicket(std::optional<int> number);
    std::string Title() const;

    Platform& platform_;
    PreviewedWindow previewed_;
    std::unique_ptr<Window> window_;  // null until first shown
    PaperView* paper_ = nullptr;
    Timer* pauseTimer_ = nullptr;
    Source source_ = Source::Editor;  // what the operator was last at
    Effects effects_;
    int effectsWidth_ = 0;       // columns, as the effects file has them
    PreviewedTicket ticket_;     // as shown
    std::optional<int> number_;  // of the ticket shown, if it is the block's
    bool isStale_ = false;       // the ticket has changed since it was shown
};

}  // namespace varno
