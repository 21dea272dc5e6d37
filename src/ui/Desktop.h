// Where forms are shown and questions asked: the part of the system that the user sees.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "ui/Form.h"

namespace ui {

// Thrown to end the program at once. Not an error: it passes every trap on its way to the entry point.
struct EndProgram {};

// Buttons and icon of a message box, by the system's style value.
enum class MessageStyle { Exclamation = 48, ExclamationYesNo = 52 };
enum class Answer { Ok = 1, Yes = 6, No = 7 };

// The system's file-open dialog, Explorer style, hooked to be centred on its owner.
struct OpenFileRequest {
    std::string title;
    std::string filter;            // "Programs (*.exe)|*.exe|..."
    std::string defaultExtension;  // without the dot
    std::string start;             // a folder with a trailing backslash, or a file
};

// How much larger a window is than its drawing area: borders, title bar, menu bar.
struct FrameSize {
    Twips width = 0, height = 0;
};

class Desktop {
public:
    virtual ~Desktop() = default;

    virtual Answer messageBox(const std::string& text, const std::string& title, MessageStyle style) = 0;
    // The chosen file's full path; nothing when the user cancelled.
    virtual std::optional<std::string> openFile(const OpenFileRequest& request) = 0;

    virtual void beep() = 0;  // as with an exclamation

    // Shows a form without waiting.
    virtual void open(Form& form) = 0;
    // Shows a form above `owner` (null: above the active form) and returns when it has been unloaded. Meanwhile no
    // other form takes input.
    virtual void runModal(Form& form, Form* owner) = 0;
    // The form has been unloaded: its window is destroyed as soon as none of its handlers is running.
    virtual void closed(Form& form) = 0;
    // Runs until no form is open.
    virtual void run() = 0;
    // Handles the pending events: input, painting, timers.
    virtual void doEvents() = 0;

    virtual int pixelsPerInch() const = 0;
    // A length that is given in pixels of a screen with 96 to the inch.
    int scaled(int pixelsAt96) const { return (pixelsAt96 * pixelsPerInch() + 48) / 96; }
    // The part of the screen that is not the task bar's.
    virtual Size workArea() = 0;
    virtual FrameSize frameSize(Form::Kind kind, bool menu) = 0;
    // The space a text takes in the program's font, wrapped at `wrap` twips unless that is 0. An "&" is a letter like
    // any other.
    virtual Size textSize(const std::string& text, Twips wrap, bool bold) = 0;

    // The loaded forms, in the order in which they were loaded.
    const std::vector<Form*>& forms() const { return forms_; }
    // Whether any of them is busy.
    bool busy() const {
        return std::any_of(forms_.begin(), forms_.end(), [](const Form* form) { return form->busy(); });
    }
    void formLoaded(Form& form) { forms_.push_back(&form); }
    void formUnloaded(Form& form) { std::erase(forms_, &form); }

private:
    std::vector<Form*> forms_;
};

}  // namespace ui
