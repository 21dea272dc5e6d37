// What the pages of the zone dialog have in common.
#pragma once

#include "ui/CommandButton.h"
#include "ui/ControlArray.h"
#include "ui/Layout.h"

// The drawing area of every page.
inline constexpr ui::Size EditPageSize{7290, 3405};
inline constexpr ui::Twips EditPageInner = EditPageSize.width - 2 * ui::layout::Margin;

// The buttons at the lower right of a page that is saved as a whole.
enum PageButton { DefaultButton, ApplyButton };
void addPageButtons(ui::ControlArray<ui::CommandButton>& buttons, ui::Control& page);

// Whether the values that a page shows could be read. What could not is not saved: the page's "Apply" is disabled then.
class PageReading {
public:
    bool succeeded() const { return succeeded_; }
    // True for the first failure after a success: only then is the user told.
    bool note(bool succeeded) {
        const bool tell = succeeded_ && !succeeded;
        succeeded_ = succeeded;
        return tell;
    }

private:
    bool succeeded_ = true;
};
