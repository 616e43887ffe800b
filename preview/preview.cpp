#include "preview/preview.h"

#include <algorithm>
#include <array>
#include <utility>

#include "block/block_content.h"
#include "block/rows.h"
#include "paper/effects_file.h"
#include "paper/layout.h"
#include "paper/look.h"
#include "platform/paper_items.h"
#include "platform/user_folder.h"
#include "platform/window_layout.h"
#include "preview/caret_sentence.h"
#include "preview/preview_design.h"

namespace varno {
namespace {

// Usual papers, in columns.
constexpr std::array PaperWidths{24, 32, 40, 42, 48};

std::string Columns(int width) {
    return std::to_string(width) + " columns";
}

// The file behind what is wrong with it: a long path would leave no room for anything else.
std::string FaultFirst(const std::string& fault) {
    const std::size_t name = fault.find(EffectsFileName);
    const std::size_t end = name + EffectsFileName.size();
    const bool namesFile = name != std::string::npos && fault.compare(end, 2, ": ") == 0;
    return namesFile ? fault.substr(end + 2) + " (" + fault.substr(0, end) + ")" : fault;
}

std::string FirstOf(const std::vector<std::string>& faults) {
    if (faults.empty()) {
        return "";
    }
    const std::string count = std::to_string(faults.size()) + " faults: ";
    return (faults.size() > 1 ? count : "") + FaultFirst(faults.front());
}

std::string Legend() {
    return std::string(PaperLegend[0]) + ". " + std::string(PaperLegend[1]) + ".";
}

}  // namespace

Preview::Preview(Platform& platform, PreviewedWindow previewed)
    : platform_(platform), previewed_(std::move(previewed)) {}

void Preview::ShowPreview_Click() {
    if (!window_) {
        Form_Load();
    }
    ReadEffects();
    isStale_ = true;
    Update();
    window_->Show();
    window_->Activate();
    paper_->SetFocus();
}

// Beside the main window, so that both can be seen.
void Preview::Form_Load() {
    window_ = platform_.CreateWindow(PreviewDesign());
    paper_ = &window_->Get<PaperView>("Paper");
    pauseTimer_ = &window_->Get<Timer>("PauseTimer");
    window_->Get<Label>("Legend").SetCaption(Legend());
    window_->SetMinimumSize(PreviewMinimumWidth, PreviewMinimumHeight);
    const Place main = previewed_.window.CurrentOuterPlace();
    const Place own = window_->OuterPlace();
    window_->SetOuterPlace({main.left + main.width, main.top, own.width, own.height});
    ConnectEvents();
}

void Preview::ConnectEvents() {
    window_->OnResize = [this] { Form_Resize(); };
    pauseTimer_->OnTimer = [this] { PauseTimer_Timer(); };
    paper_->OnClick = [this](PaperPlace place) { Paper_Click(place); };
    window_->Get<DropDownList>("PaperWidth").OnClick = [this] { PaperWidth_Click(); };
    window_->Get<Button>("PrintButton").OnClick = [this] { PrintButton_Click(); };
    window_->Get<Button>("PdfButton").OnClick = [this] {
        previewed_.savePdf(Title() + ".pdf", paper_->Pdf(Title()));
        window_->Activate();
    };
    window_->Get<Button>("CloseButton").OnClick = [this] { window_->Hide(); };
    window_->Get<MenuItem>("BackToTicket").OnClick = [this] { previewed_.window.Activate(); };
    window_->Get<Button>("CopyButton").OnClick = [this] { paper_->Copy(); };
    ConnectPaperItems(*window_);
}

// Anew at each showing: whoever writes the file wants to see what it does.
void Preview::ReadEffects() {
    effects_ = {};
    const auto faults = LoadEffects(platform_.App().folder, UserDataFolder(), effects_);
    effectsWidth_ = effects_.paperWidth;
    window_->Get<Label>("Faults").SetCaption(FirstOf(faults));
    auto& widths = window_->Get<DropDownList>("PaperWidth");
    const int chosen = std::max(widths.ListIndex(), 0);
    widths.Clear();
    widths.AddItem(Columns(effectsWidth_) + " (code effects)");
    for (const int width : PaperWidths) {
        widths.AddItem(Columns(width));
    }
    widths.SetListIndex(chosen);
    PaperWidth_Click();
}

void Preview::Form_Resize() {
    const Place outer = window_->CurrentOuterPlace();
    LayOutControls(*window_, PreviewLayout(), outer.width, outer.height);
}

// The list may be empty again, or its ticket in the editor.
std::optional<int> Preview::SelectedTicket() const {
    const ListBox& list = previewed_.TicketList;
    if (source_ == Source::Editor || list.ListIndex() < 0) {
        return std::nullopt;
    }
    return LeadingNumber(list.List(list.ListIndex()));
}

// On the paper as wide as it was last shown. What is wrong with the effects its window tells.
void Preview::TellCaret_Click() {
    Effects effects;
    LoadEffects(platform_.App().folder, UserDataFolder(), effects);
    if (window_) {
        effects.paperWidth = effects_.paperWidth;
    }
    const std::string sentence = CaretSentence(
        previewed_.RichText.Content(), static_cast<std::size_t>(previewed_.RichText.SelStart()),
        effects, CommentsOf(previewed_.catalogues));
    previewed_.RichText.ShowNote(sentence);
    previewed_.window.Announce(sentence);
}

void Preview::On(CommandEvent event) {
    switch (event) {
        case CommandEvent::EditorChanged:
        case CommandEvent::EditorFocused:
            source_ = Source::Editor;
            break;
        case CommandEvent::ListSelected:
            source_ = Source::List;
            break;
        case CommandEvent::BlockOpened:
        case CommandEvent::ImageBegins:
        case CommandEvent::UploadEnded:
        case CommandEvent::PutEnded:
        case CommandEvent::TicketDeleted:
            break;
        default:
            return;
    }
    isStale_ = true;
    UpdateSoon();
}

// While the text changes the timer starts again and again; a caret that only moves does not wait
// for its rest.
void Preview::RichText_SelChange() {
    if (IsShown()) {
        pauseTimer_->SetEnabled(true);
    }
}

void Preview::UpdateSoon() {
    if (IsShown()) {
        pauseTimer_->SetEnabled(false);
        pauseTimer_->SetEnabled(true);
    }
}

void Preview::PauseTimer_Timer() {
    pauseTimer_->SetEnabled(false);
    if (IsShown()) {
        Update();
    }
}

void Preview::Update() {
    if (isStale_) {
        ShowTicket(SelectedTicket());
    }
    paper_->SetCaret(number_
                         ? std::nullopt
                         : std::optional(PlaceOfCaret(
                               ticket_, static_cast<std::size_t>(previewed_.RichText.SelStart()))));
}

void Preview::ShowTicket(std::optional<int> number) {
    const bool isOther = std::exchange(number_, number) != number && number;
    isStale_ = false;
    if (number) {
        const BlockContent content = ContentOf(previewed_.block.TicketBuffer);
        const TicketRecord* const record = content.Find(*number);
        ticket_ = {LayOut(record != nullptr ? record->body : std::vector<Word>(), effects_), {}};
    } else {
        ticket_ = PreviewOf(previewed_.RichText.Content(), effects_);
    }
    window_->Get<Label>("ShownTicket").SetCaption(Title());
    paper_->ShowPaper(ticket_.paper);
    if (isOther) {
        paper_->ScrollToTop();
    }
}

std::string Preview::Title() const {
    return number_ ? "Ticket " + std::to_string(*number_) : "Ticket in the editor";
}

void Preview::PaperWidth_Click() {
    const int chosen = window_->Get<DropDownList>("PaperWidth").ListIndex();
    effects_.paperWidth =
        chosen < 1 ? effectsWidth_ : PaperWidths[static_cast<std::size_t>(chosen) - 1];
    isStale_ = true;
    Update();
}

// A ticket of the block is not in the editor: there is no place for the caret.
void Preview::Paper_Click(PaperPlace place) {
    if (number_) {
        return;
    }
    previewed_.RichText.SetSelStart(static_cast<int>(CaretAt(ticket_, place)));
    previewed_.RichText.SetFocus();
    previewed_.window.Activate();
    previewed_.caretPlaced();
}

void Preview::PrintButton_Click() {
    if (const Error error = paper_->Print(Title())) {
        platform_.DialogBoxes().ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
    }
}

}  // namespace varno
