#include "practice/indicator_window.h"

#include <exception>
#include <utility>

#include "platform/paper_items.h"
#include "practice/indicator_design.h"
#include "practice/line_text.h"

namespace varno {
namespace {

// The roll ends in a basket: of what was printed before, the oldest is no longer seen.
constexpr std::size_t MostRows = 2000;

void ShowIfOther(Label& label, const std::string& text) {
    if (label.Caption() != text) {
        label.SetCaption(text);
    }
}

}  // namespace

IndicatorWindow::IndicatorWindow(Platform& platform, DescriptorWatch& watch, Indicator& indicator,
                                 Station& station, int port)
    : platform_(platform),
      watch_(watch),
      indicator_(indicator),
      station_(station),
      port_(port),
      window_(platform.CreateWindow(IndicatorDesign())),
      paper_(window_->Get<PaperView>("Paper")) {
    ConnectPanel();
    ConnectLine();
    ConnectPaper();
    watch_.OnReady = [this] { Serve(); };
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] { OnClose(); };
    window_->SetMinimumSize(IndicatorMinimumWidth, IndicatorMinimumHeight);
    roll_.width = indicator_.PaperWidth();
    TearOff();
}

void IndicatorWindow::Show(int left, int top) {
    const Place own = window_->OuterPlace();
    window_->SetOuterPlace({left, top, own.width, own.height});
    window_->Show();
    Serve();
}

std::function<void()> IndicatorWindow::Doing(std::function<void()> act) {
    return [this, act = std::move(act)] {
        act();
        Serve();
    };
}

void IndicatorWindow::ConnectPanel() {
    int key = 0;
    for (const std::string_view button : KeyButtons()) {
        TheButton(button).OnClick = Doing([this, key] { indicator_.PrintKey(key); });
        ++key;
    }
    TheButton("Parameter77").OnClick = Doing([this] { indicator_.Transmit(); });
    TheButton("Parameter78").OnClick = Doing([this] { indicator_.StartCapture(); });
}

void IndicatorWindow::ConnectLine() {
    Line& line = station_.Wire();
    for (const FaultItem& item : FaultItems()) {
        Menu(item.name).OnClick = Doing([&line, item] { line.Arm(item.fault, item.after); });
    }
    for (const SpeedItem& item : SpeedItems()) {
        Menu(item.name).OnClick = Doing([&line, item] { line.SetSpeed(item.baud); });
    }
    Menu("GoOn").OnClick = Doing([&line] { line.Resume(); });
    Menu("Noise").OnClick = Doing([this] { indicator_.SendNoise(); });
}

void IndicatorWindow::ConnectPaper() {
    Menu("TearOff").OnClick = [this] { TearOff(); };
    Menu("CopyPaper").OnClick = [this] { paper_.Copy(); };
    ConnectPaperItems(*window_);
}

void IndicatorWindow::Form_Resize() {
    const Place outer = window_->CurrentOuterPlace();
    LayOutControls(*window_, IndicatorLayout(), outer.width, outer.height);
}

// Without a line there is nothing to practise on.
void IndicatorWindow::Serve() try {
    station_.Step();
    ShowState();
    std::vector<DescriptorWatch::Wanted> wanted;
    if (station_.IsPlugged()) {
        wanted = {{station_.Handle(), station_.WantsInput(), station_.WantsOutput()},
                  {station_.Openings(), true, false}};
    }
    watch_.Wait(wanted, station_.LongestWait());
} catch (const std::exception& failure) {
    watch_.OnReady = nullptr;
    platform_.DialogBoxes().ShowMessage(failure.what(), ApplicationTitle, Buttons::Ok,
                                        Icon::Critical);
    Close();
}

void IndicatorWindow::ShowState() {
    ShowIfOther(window_->Get<Label>("Display"), indicator_.Display());
    if (!indicator_.TakeScreen().empty()) {  // said, maybe once more: its display is enough here
        window_->Announce(indicator_.Display());
    }
    ShowIfOther(window_->Get<Label>("LineState"), LineText(station_, port_));
    Menu("GoOn").SetEnabled(station_.Wire().Armed() != Line::Fault::None);
    const Paper printed = indicator_.TakePaper();
    if (!printed.rows.empty()) {
        Print(printed);
    }
}

// The caret is where the next ticket will begin.
void IndicatorWindow::Print(const Paper& paper) {
    Append(roll_, paper);
    if (roll_.rows.size() > MostRows) {
        const auto tooMany = static_cast<std::ptrdiff_t>(roll_.rows.size() - MostRows);
        roll_.rows.erase(roll_.rows.begin(), roll_.rows.begin() + tooMany);
    }
    paper_.ShowPaper(roll_);
    paper_.SetCaret(std::nullopt);
    paper_.SetCaret(PaperPlace{roll_.rows.size(), 0});
}

void IndicatorWindow::TearOff() {
    roll_.rows.clear();
    paper_.ShowPaper(roll_);
    paper_.SetCaret(PaperPlace{0, 0});
}

}  // namespace varno
