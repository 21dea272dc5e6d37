#include "errors/frmError.h"

#include "errors/ErrorReporter.h"
#include "support/Core.h"
#include "ui/copiedText.h"

namespace {

struct frmError_ : testing::Test, Core {
    void show(const std::string& description, std::function<void(frmError&)> script) {
        system.desktop.expectForm<frmError>(std::move(script));
        procedure("frmMain.mnuFile_Click", [&] { throw util::Error(0x80040001, "Test", description); });
        system.desktop.settle();
    }
};

TEST_F(frmError_, ShowsWhatWentWrongAndWhere) {
    const std::uint8_t image[] = {40, 0, 0, 0};
    const ui::Picture exclamation(ui::Picture::Kind::Icon, image, 32, 32);
    errors::reporting.exclamation = [&] { return exclamation; };
    show("Q & A", [&](frmError& dialog) {
        EXPECT_EQ(ui::copiedText(dialog).substr(0, 105),
                  "Module: frmMain\r\nProcedure: mnuFile_Click\r\nLine: 0\r\nError Number: -2147221503\r\n"
                  "Error Description: Q & A\r\n");
        EXPECT_EQ(system.desktop.beeps, 1);
        EXPECT_EQ(dialog.imgExclaim.picture(), exclamation);
        dialog.cmdContinue.click();
    });
}

TEST_F(frmError_, EnterEscapeAndTheCloseBoxContinueAndEndEndsTheProgram) {
    for (void (ui::Form::*leave)() : {&ui::Form::pressEnter, &ui::Form::pressEscape, &ui::Form::closeBox})
        show("Text", [&](frmError& dialog) {
            (dialog.*leave)();
            EXPECT_FALSE(dialog.loaded());
        });
    EXPECT_THROW(show("Text", [](frmError& dialog) { dialog.cmdEnd.click(); }), ui::EndProgram);
}

TEST_F(frmError_, MakesRoomForLongTextsWithinTheSmallestScreen) {
    std::string words;
    while (words.size() < 4000) words += "word ";
    const std::string texts[] = {"Short.", words.substr(0, 300), words, std::string(5000, 'W')};
    ui::Twips before = 0;
    for (const std::string& text : texts)
        show(text, [&](frmError& dialog) {
            EXPECT_LE(dialog.height(), 7200);
            EXPECT_LT(dialog.lblErrDescription.bounds().bottom(), dialog.lblInfo(5).top());
            EXPECT_LT(dialog.lblInfo(6).bounds().bottom(), dialog.cmdEnd.top());
            EXPECT_GT(dialog.client().height, dialog.cmdEnd.bounds().bottom());
            EXPECT_TRUE(dialog.height() > before || text.size() > 1000) << "room grows with the text";
            before = dialog.height();
            dialog.cmdContinue.click();
        });
}

}  // namespace
