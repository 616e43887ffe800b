// What asks the program to end: the signals of a desktop that logs out, of a terminal that closes,
// and Ctrl+C in it. The program then does what it does when its window is closed, questions
// included.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace varno {

class EndRequests {
  public:
    // `close` is called once at the most. Dialogs are closed before, as by their close boxes; one
    // that wants an answer gets it first.
    explicit EndRequests(std::function<void()> close);
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

  private:
    void Came();
    void TryToClose();

    std::function<void()> close_;
    std::unique_ptr<QSocketNotifier> signals_;
    QTimer nextTry_;
};

}  // namespace varno
