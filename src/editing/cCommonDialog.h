// The system's file-open dialog with its settings, to be filled in one by one and shown.
#pragma once

#include "ui/Desktop.h"

class cCommonDialog {
public:
    explicit cCommonDialog(ui::Desktop& desktop) : desktop_(desktop) {}

    void Title(std::string title) { request_.title = std::move(title); }
    void Filter(std::string filter) { request_.filter = std::move(filter); }
    void DefaultExt(std::string extension) { request_.defaultExtension = std::move(extension); }
    void Start(std::string start) { request_.start = std::move(start); }

    // Centred on the active form. False when the user gave up.
    bool ShowOpen();
    const std::string& FileName() const { return fileName_; }  // full path of the file chosen last

private:
    ui::Desktop& desktop_;
    ui::OpenFileRequest request_;
    std::string fileName_;
};
