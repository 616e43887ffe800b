// The simulated indicator as a window: its keys, its two parameters, its paper, and its line with
// the faults that a line can have.
#pragma once

#include <functional>
#include <memory>

#include "paper/paper.h"
#include "platform/descriptor_watch.h"
#include "platform/paper_view.h"
#include "platform/platform.h"
#include "simulator/indicator.h"
#include "simulator/station.h"

namespace varno {

class IndicatorWindow {
  public:
    // `port`: the number that the station is offered as.
    IndicatorWindow(Platform& platform, DescriptorWatch& watch, Indicator& indicator,
                    Station& station, int port);

    // The left upper corner, in twips.
    void Show(int left, int top);
    void Close() { window_->Close(); }
    std::function<void()> OnClose;

  private:
    void ConnectPanel();
    void ConnectLine();
    void ConnectPaper();
    void Form_Resize();

    void Serve();  // the line; then shows what has changed
    void ShowState();
    void Print(const Paper& paper);
    void TearOff();

    // What the operator does at the indicator happens before it serves its line.
    std::function<void()> Doing(std::function<void()> act);
    Button& TheButton(std::string_view name) { return window_->Get<Button>(name); }
    MenuItem& Menu(std::string_view name) { return window_->Get<MenuItem>(name); }

    Platform& platform_;
    DescriptorWatch& watch_;
    Indicator& indicator_;
    Station& station_;
    int port_;
    std::unique_ptr<Window> window_;
    PaperView& paper_;
    Paper roll_;  // printed and not yet torn off
};

}  // namespace varno
