#include "history/history_window.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "block/block_content.h"
#include "block/block_file.h"
#include "codec/encoder.h"
#include "history/comparison.h"
#include "history/history_design.h"
#include "paper/effects_file.h"
#include "paper/layout.h"
#include "platform/paper_items.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/user_folder.h"
#include "platform/window_layout.h"

namespace varno {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How long reading the copies may keep the keys waiting.
constexpr milliseconds LearningTime{8};

// Of a longer ticket, which no block takes, the paper shows the beginning.
constexpr std::size_t MostWordsOnPaper = 4'000;

std::vector<Word> BodyOf(const MarkedText& ticket) {
    std::vector<Word> body;
    for (const PlacedWord& placed : EncodeBody(ticket)) {
        body.push_back(placed.word);
    }
    return body;
}

std::vector<Word> BodyOf(const std::string& image, int number) {
    const BlockContent content = ContentOf(image);
    const TicketRecord* const record = content.Find(number);
    return record == nullptr ? std::vector<Word>() : record->body;
}

// Whether the one hides more of the other than its border.
bool Covers(const Place& one, const Place& other) {
    constexpr int Border = 300;
    const auto isPast = [](int end, int begin) { return end - begin > Border; };
    return isPast(one.left + one.width, other.left) && isPast(other.left + other.width, one.left) &&
           isPast(one.top + one.height, other.top) && isPast(other.top + other.height, one.top);
}

// Nothing that is kept by it.
bool ChangesNothing(CommandEvent event) {
    using enum CommandEvent;
    return event == VarnoMenuOpens || event == FileMenuOpens || event == NumberChanged ||
           event == ListSelected || event == EditorFocused;
}

}  // namespace

HistoryWindow::HistoryWindow(Platform& platform, OpenWork work)
    : platform_(platform),
      work_(std::move(work)),
      history_(HistoryFolder()),
      started_(std::chrono::floor<milliseconds>(std::chrono::system_clock::now())) {}

void HistoryWindow::ShowHistory_Click() {
    if (!window_) {
        Form_Load();
    }
    effects_ = {};
    (void)LoadEffects(platform_.App().folder, UserDataFolder(), effects_);  // the preview tells
    ReadCopies();
    window_->Show();
    window_->Activate();
    copies_->SetFocus();
}

void HistoryWindow::Form_Load() {
    window_ = platform_.CreateWindow(HistoryDesign());
    copies_ = &window_->Get<Table>("Copies");
    differences_ = &window_->Get<Table>("Differences");
    copyTicket_ = &window_->Get<DropDownList>("CopyTicket");
    paper_ = &window_->Get<PaperView>("Paper");
    window_->SetMinimumSize(HistoryMinimumWidth, HistoryMinimumHeight);
    const Place main = work_.window.CurrentOuterPlace();
    const Place own = window_->OuterPlace();
    window_->SetOuterPlace({main.left + main.width, main.top, own.width, own.height});
    ConnectEvents();
}

void HistoryWindow::ConnectEvents() {
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] { Leave(); };
    window_->Get<Timer>("PauseTimer").OnTimer = [this] { PauseTimer_Timer(); };
    window_->Get<Timer>("LearnTimer").OnTimer = [this] { LearnTimer_Timer(); };
    window_->Get<TextBox>("Find").OnChange = [this] { Find_Change(); };
    copies_->OnText = [this](int row, int column) {
        return rows_.Text(static_cast<std::size_t>(row), static_cast<CopyColumn>(column));
    };
    copies_->OnClick = [this] { Copies_Click(); };
    differences_->OnText = [this](int row, int /*column*/) {
        return sentences_[static_cast<std::size_t>(row)];
    };
    copyTicket_->OnClick = [this] { CopyTicket_Click(); };
    window_->Get<Button>("OpenButton").OnClick = [this] { OpenButton_Click(); };
    window_->Get<Button>("SaveCopyButton").OnClick = [this] { SaveCopyButton_Click(); };
    window_->Get<Button>("CloseButton").OnClick = [this] { Leave(); };
    window_->Get<MenuItem>("BackToWork").OnClick = [this] { BackToWork(); };
    ConnectPaperItems(*window_);
}

void HistoryWindow::Form_Resize() {
    const Place outer = window_->CurrentOuterPlace();
    LayOutControls(*window_, HistoryLayout(), outer.width, outer.height);
}

// The keys go back to where they were.
void HistoryWindow::Leave() {
    window_->Hide();
    work_.window.Activate();
}

// This window stands above the other. Where there is no room beside it, it does not hide what has
// the keys then.
void HistoryWindow::BackToWork() {
    if (Covers(window_->CurrentOuterPlace(), work_.window.CurrentOuterPlace())) {
        window_->Hide();
    }
    work_.window.Activate();
}

void HistoryWindow::On(CommandEvent event) {
    if (!IsShown() || ChangesNothing(event)) {
        return;
    }
    areCopiesStale_ |= event != CommandEvent::EditorChanged;
    UpdateSoon();
}

void HistoryWindow::UpdateSoon() {
    auto& pause = window_->Get<Timer>("PauseTimer");
    pause.SetEnabled(false);
    pause.SetEnabled(true);
}

void HistoryWindow::PauseTimer_Timer() {
    window_->Get<Timer>("PauseTimer").SetEnabled(false);
    if (IsShown()) {
        areCopiesStale_ ? ReadCopies() : Compare();
    }
}

// A copy is on the disk a moment after what it is made for.
void HistoryWindow::ReadCopies() {
    areCopiesStale_ = work_.isKeeping();
    if (areCopiesStale_) {
        UpdateSoon();
    }
    rows_.ReadCopies(history_, started_);
    rows_.Filter(window_->Get<TextBox>("Find").Text());
    ShowRows();
    window_->Get<Timer>("LearnTimer").SetEnabled(true);
}

// What is learned in one go is shown in one go.
void HistoryWindow::LearnTimer_Timer() {
    const auto end = steady_clock::now() + LearningTime;
    bool isMore = IsShown();
    while (isMore && steady_clock::now() < end) {
        isMore = rows_.LearnNext(history_);
    }
    window_->Get<Timer>("LearnTimer").SetEnabled(isMore);
    if (rows_.Filter(window_->Get<TextBox>("Find").Text())) {
        ShowRows();
    } else {
        copies_->Repaint();
    }
}

void HistoryWindow::Find_Change() {
    rows_.Filter(window_->Get<TextBox>("Find").Text());
    ShowRows();
}

// The chosen copy stays chosen while it is shown.
void HistoryWindow::ShowRows() {
    const std::size_t row = (chosen_ ? rows_.Find(*chosen_) : std::nullopt).value_or(0);
    const bool isAny = rows_.ShownCount() > 0;
    copies_->ShowRows(static_cast<int>(rows_.ShownCount()), isAny ? static_cast<int>(row) : -1);
    chosen_ = isAny ? std::optional(rows_.Shown(row)) : std::nullopt;
    ShowSummary();
    ReadChosen();
}

void HistoryWindow::ShowSummary() {
    const std::string all =
        std::to_string(rows_.Count()) + (rows_.Count() == 1 ? " copy" : " copies");
    std::string summary = rows_.ShownCount() == rows_.Count()
                              ? all
                              : std::to_string(rows_.ShownCount()) + " of " + all;
    std::string missing = work_.missing();
    if (const Error obstacle = history_.Obstacle()) {
        summary = "The copies cannot be read";
        missing = missing.empty() ? *obstacle : missing;
    }
    window_->Get<Label>("Summary").SetCaption(missing.empty() ? summary : summary + ". " + missing);
}

void HistoryWindow::Copies_Click() {
    chosen_ = rows_.Shown(static_cast<std::size_t>(copies_->SelectedRow()));
    ReadChosen();
}

void HistoryWindow::ReadChosen() {
    content_.clear();
    ticket_ = {};
    unreadable_ = chosen_ ? history_.Read(*chosen_, content_) : Error();
    const bool isRead = chosen_ && !unreadable_;
    const bool isTicket = chosen_ && chosen_->kind == CopyKind::Ticket;
    window_->Get<Button>("OpenButton").SetEnabled(isRead);
    window_->Get<Button>("SaveCopyButton").SetEnabled(isRead);
    if (isRead && isTicket) {
        unreadable_ = LoadMarkedText(content_, ticket_);
    }
    ShowTickets(isRead && !isTicket ? FindingsIn(CopyKind::Block, content_).tickets
                                    : std::vector<int>());
    Compare();
}

void HistoryWindow::Compare() {
    sentences_ = DifferencesOfChosen();
    differences_->ShowRows(static_cast<int>(sentences_.size()), -1);
}

std::vector<std::string> HistoryWindow::DifferencesOfChosen() const {
    if (!chosen_) {
        return {};
    }
    if (unreadable_) {
        return {*unreadable_};
    }
    if (chosen_->kind == CopyKind::Block) {
        return CompareBlocks(work_.block.TicketBuffer, ImageIn(content_), work_.comment);
    }
    return CompareTickets(work_.RichText.Content(), ticket_, work_.comment);
}

// The number that was chosen stays so, if the copy has it.
void HistoryWindow::ShowTickets(const std::vector<int>& numbers) {
    const int former = copyTicket_->ListIndex();
    const int number = former >= 0 && static_cast<std::size_t>(former) < tickets_.size()
                           ? tickets_[static_cast<std::size_t>(former)]
                           : 0;
    tickets_ = numbers;
    copyTicket_->Clear();
    if (chosen_ && chosen_->kind == CopyKind::Ticket) {
        copyTicket_->AddItem(BodyOf(ticket_).size() > MostWordsOnPaper
                                 ? "the beginning of the ticket"
                                 : "the ticket");
    }
    for (const int each : tickets_) {
        copyTicket_->AddItem("ticket " + std::to_string(each));
    }
    const auto found = std::find(tickets_.begin(), tickets_.end(), number);
    if (found != tickets_.end()) {
        copyTicket_->SetListIndex(static_cast<int>(found - tickets_.begin()));
    }
    ShowPaper();
    paper_->ScrollToTop();
}

void HistoryWindow::CopyTicket_Click() {
    ShowPaper();
    paper_->ScrollToTop();
}

void HistoryWindow::ShowPaper() {
    const int row = copyTicket_->ListIndex();
    std::vector<Word> body;
    if (row >= 0 && chosen_) {
        body = chosen_->kind == CopyKind::Ticket
                   ? BodyOf(ticket_)
                   : BodyOf(ImageIn(content_), tickets_[static_cast<std::size_t>(row)]);
    }
    body.resize(std::min(body.size(), MostWordsOnPaper));
    paper_->ShowPaper(LayOut(body, effects_));
}

// The copy is a value: whatever happens behind the question, it is the one that was chosen.
void HistoryWindow::OpenButton_Click() {
    const Copy copy = *chosen_;
    const std::string content = content_;
    work_.open(copy, content) ? BackToWork() : window_->Activate();
}

void HistoryWindow::SaveCopyButton_Click() {
    const Copy copy = *chosen_;
    const std::string content = content_;
    work_.saveAs(copy, content);
    window_->Activate();
}

}  // namespace varno
