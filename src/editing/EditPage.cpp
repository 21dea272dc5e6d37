#include "editing/EditPage.h"

// [Default] [Apply]
void addPageButtons(ui::ControlArray<ui::CommandButton>& buttons, ui::Control& page) {
    using namespace ui::layout;
    const ui::Twips top = EditPageSize.height - Margin - ButtonHeight;
    const ui::Twips right = EditPageSize.width - Margin - ButtonWidth;
    buttons.add(page, {right - Margin - ButtonWidth, top, ButtonWidth, ButtonHeight}, "Default");
    buttons.add(page, {right, top, ButtonWidth, ButtonHeight}, "Apply");
}
