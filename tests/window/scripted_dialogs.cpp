#include "tests/window/scripted_dialogs.h"

#include <utility>

namespace varno {
namespace {

std::string Shown(const Message& message) {
    return "\"" + message.title + "\": \"" + message.text + "\" buttons " +
           std::to_string(static_cast<int>(message.buttons)) + " icon " +
           std::to_string(static_cast<int>(message.icon));
}

std::string Shown(const std::string& title, const std::string& prompt) {
    return "\"" + title + "\": \"" + prompt;
}

}  // namespace

void ScriptedDialogs::Expect(const Message& message, Answer answer,
                             std::function<void()> meanwhile) {
    script_.push_back({Shown(message), answer, {}, {}, std::move(meanwhile)});
}

void ScriptedDialogs::ExpectInput(const std::string& title, const std::string& prompt,
                                  std::string reply) {
    script_.push_back({Shown(title, prompt), {}, std::move(reply), {}, {}});
}

void ScriptedDialogs::ExpectOpen(std::optional<ChosenFile> chosen) {
    script_.push_back({"open dialog", {}, {}, std::move(chosen), {}});
}

void ScriptedDialogs::ExpectSave(std::optional<ChosenFile> chosen) {
    script_.push_back({"save dialog", {}, {}, std::move(chosen), {}});
}

void ScriptedDialogs::ExpectNoMore() {
    for (const Step& step : script_) {
        ADD_FAILURE() << "never asked: " << step.question;
    }
    script_.clear();
}

Answer ScriptedDialogs::ShowMessage(const std::string& text, const std::string& title,
                                    Buttons buttons, Icon icon) {
    const Message message{text, title, buttons, icon};
    if (hear_) {
        hear_(message);
        return Answer::Ok;
    }
    const Step step = Next(Shown(message));
    if (step.meanwhile) {
        step.meanwhile();
    }
    return step.answer;
}

std::string ScriptedDialogs::InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) {
    inputDefaults.push_back(defaultText);
    return Next(Shown(title, prompt)).reply;
}

std::optional<ChosenFile> ScriptedDialogs::ShowOpen(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    return Next("open dialog").chosen;
}

std::optional<ChosenFile> ScriptedDialogs::ShowSave(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    return Next("save dialog").chosen;
}

// An unexpected question is cancelled, so that no loop asks for ever.
ScriptedDialogs::Step ScriptedDialogs::Next(const std::string& question) {
    if (script_.empty() || script_.front().question != question) {
        ADD_FAILURE() << "unexpected: " << question << "\nexpected:   "
                      << (script_.empty() ? "nothing" : script_.front().question);
        return {};
    }
    Step step = std::move(script_.front());
    script_.pop_front();
    return step;
}

}  // namespace varno
