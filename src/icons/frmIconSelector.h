// The dialog that shows every icon of one program file; clicking one chooses it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "ui/Form.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/PictureBox.h"
#include "ui/ProgressBar.h"
#include "ui/Timer.h"

namespace icons {
class ModuleFile;
}

class frmIconSelector : public ui::Form {
public:
    // What the user has chosen: a file, and the number or name of an icon in it.
    using Chosen = std::function<void(const std::string& file, const std::string& resource)>;

    // `file`: full path. The chosen icon is drawn into `target` and told to `chosen`; neither happens when the user
    // gives up.
    frmIconSelector(platform::Platform& platform, std::string file, ui::Image& target, Chosen chosen);

    ui::Label lblIconCount;
    ui::ListView lvwIcons;
    ui::PictureBox Picture1;  // in the place of the list while it is filled
    ui::Label lblInfo;
    ui::ProgressBar Progress;
    ui::Image picParent;  // hidden: each icon is drawn here on its way into the image lists
    ui::ImageList ilsIcons32;
    ui::ImageList ilsIcons16;
    ui::Timer tmrLoad;  // first tick: the dialog stands, now read the file
    ui::Timer tmrUnload;

    // Counts the icons of `path` and shows those of a DLL, EXE or OCX. Pending events run meanwhile: the user may close
    // the dialog, which ends the loading; a file asked for while another is being loaded is passed over.
    void ShowFile(const std::string& path);

protected:
    void Form_Load() override;

private:
    class ProgressDisplay;

    void ClearIcons();
    void LoadIcons(const std::string& path);
    std::string LoadIcon(const icons::ModuleFile& module, const platform::ResourceId& name);
    void FillList(const std::vector<std::string>& identifiers);
    void lvwIcons_ItemClick(int item);
    void tmrLoad_Timer();
    void tmrUnload_Timer();

    platform::Platform& platform_;
    std::string file_;
    ui::Image& target_;
    Chosen chosen_;
    bool loading_ = false;
};
