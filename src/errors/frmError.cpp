#include "errors/frmError.h"

#include <algorithm>

#include "errors/ErrorReporter.h"
#include "errors/errorLog.h"
#include "ui/Desktop.h"
#include "ui/Layout.h"
#include "util/Error.h"
#include "util/procedure.h"

namespace {

using ui::Twips;
using namespace ui::layout;
constexpr Twips Row = 270, LineHeight = 195;
constexpr Twips Captions = 780, Values = 2580, Width = 6300;  // left edges of the columns; the drawing area
constexpr Twips ValueWidth = Width - Margin - Values, InfoWidth = Width - Margin - Captions;
constexpr Twips LongestDescription = 20 * LineHeight, LongestLogLine = 5 * LineHeight;
constexpr int PressInfo = 5, LogInfo = 6;  // indexes of the two lines of advice

ui::Bounds captionPlace(int row) {
    return {Captions, Margin + row * Row, Values - Captions - Margin / 2, LineHeight};
}
ui::Bounds valuePlace(int row) {
    return {Values, Margin + row * Row, ValueWidth, LineHeight};
}
ui::Bounds buttonPlace(int fromRight) {
    return {Width - fromRight * (Margin + ButtonWidth), 0, ButtonWidth, ButtonHeight};  // layOut gives the top
}

}  // namespace

frmError::frmError(ui::Desktop& desktop)
    : Form(desktop, Kind::Dialog, "frmError", "Error", {Width, 3000}),
      imgExclaim(*this, "imgExclaim", {Margin, Margin, 480, 480}),
      lblModule(captioned(lblInfo, *this, captionPlace(0), "Module:"), "lblModule", valuePlace(0), ""),
      lblProcedure(captioned(lblInfo, *this, captionPlace(1), "Procedure:"), "lblProcedure", valuePlace(1), ""),
      lblLine(captioned(lblInfo, *this, captionPlace(2), "Line:"), "lblLine", valuePlace(2), ""),
      lblErrNumber(captioned(lblInfo, *this, captionPlace(3), "Error Number:"), "lblErrNumber", valuePlace(3), ""),
      lblErrDescription(captioned(lblInfo, *this, captionPlace(4), "Error Description:"), "lblErrDescription",
                        valuePlace(4), ""),
      cmdContinue(*this, "cmdContinue", buttonPlace(2), "&Continue"),
      cmdEnd(*this, "cmdEnd", buttonPlace(1), "&End ") {
    lblInfo.add(*this, {Captions, 0, InfoWidth, LineHeight}, "Press continue to return to Tavimor or End to quit.");
    lblInfo.add(*this, {Captions, 0, InfoWidth, LineHeight}, "This and other info logged to file.");
    cmdContinue.setToolTip("Continue program operation.");
    cmdContinue.onClick = [this] { cmdContinue_Click(); };
    cmdEnd.setToolTip("End the program.");
    cmdEnd.onClick = [this] { cmdEnd_Click(); };
    setDefaultButton(cmdContinue);
    setCancelButton(cmdContinue);
    layOut();
}

void frmError::Form_Load() {
    const errors::Report report = errors::currentReport();
    lblLine.setCaption(report.line);
    lblErrNumber.setCaption(report.number);
    lblErrDescription.setCaption(report.description);
    lblModule.setCaption(report.module);
    lblProcedure.setCaption(report.procedure);
    try {
        basErrors::WriteErrorLog(report.module, report.procedure, report.line, report.number, report.description);
    } catch (const util::Error& refused) {
        // A log that cannot be written is no reason to hide the error, and is not reported as an error itself: that
        // report could not be written either.
        lblInfo(LogInfo).setCaption(std::string("This could not be logged to file. ") + refused.what());
    } catch (const std::exception&) {
        lblInfo(LogInfo).setCaption("This could not be logged to file: there is not enough memory.");
    }
    desktop().beep();
    if (errors::reporting.exclamation) imgExclaim.setPicture(errors::reporting.exclamation());
    layOut();
}

void frmError::layOut() {
    const auto wrapped = [this](const ui::Label& label, Twips longest) {
        return std::clamp(desktop().textSize(label.caption(), label.width(), false).height, LineHeight, longest);
    };
    lblErrDescription.setHeight(wrapped(lblErrDescription, LongestDescription));
    lblInfo(PressInfo).setTop(lblErrDescription.bounds().bottom() + Margin);
    lblInfo(LogInfo).setTop(lblInfo(PressInfo).bounds().bottom() + Margin / 2);
    lblInfo(LogInfo).setHeight(wrapped(lblInfo(LogInfo), LongestLogLine));
    const Twips buttons = lblInfo(LogInfo).bounds().bottom() + Margin;
    cmdContinue.setTop(buttons);
    cmdEnd.setTop(buttons);
    setHeight(height() - client().height + cmdEnd.bounds().bottom() + Margin);
}

void frmError::cmdContinue_Click() {
    procedure("frmError.cmdContinue_Click", [&] { unload(); });
}

void frmError::cmdEnd_Click() {
    procedure("frmError.cmdEnd_Click", [] { throw ui::EndProgram(); });
}
