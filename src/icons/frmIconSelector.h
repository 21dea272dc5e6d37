// The dialog that shows every icon of one program file; clicking one chooses it.
#pragma once

#include <string>
#include <vector>

#include "icons/IconReference.h"
#include "platform/Platform.h"
#include "ui/Form.h"
#include "ui/Image.h"
#include "ui/ImageList.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/ProgressBar.h"
#include "ui/Timer.h"

namespace icons {
class ModuleFile;
}

class frmIconSelector : public ui::Form {
public:
    using Chosen = ui::Handler<void(const icons::IconReference& icon)>;

    // `file`: full path. The chosen icon is drawn into `target` and told to `chosen`; neither happens when the user
    // gives up.
    frmIconSelector(platform::Platform& platform, std::string file, ui::Image& target, Chosen chosen);

    ui::Label lblIconCount;
    ui::ListView lvwIcons;
    ui::Label lblUnusable;  // instead of the list when a zone cannot use the file's icons
    ui::Image Picture1;     // instead of the list while it is filled
    ui::Label lblInfo;
    ui::ProgressBar Progress;
    ui::Image picParent;  // hidden: each icon is drawn here on its way into the image lists
    ui::ImageList ilsIcons32;
    ui::ImageList ilsIcons16;
    ui::Timer tmrLoad;  // first tick: the dialog is shown, now read the file
    ui::Timer tmrUnload;

    // Counts the icons of `path` and shows those of a DLL, EXE or OCX that a zone can use. Pending events run
    // meanwhile: the user may close the dialog, which ends the loading; a file asked for while another is being loaded
    // is passed over.
    void ShowFile(const std::string& path);

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    class ProgressDisplay;
    struct LoadedIcon;

    void ClearIcons();
    void LoadIcons(const std::string& path);
    LoadedIcon LoadIcon(const icons::ModuleFile& module, const platform::ResourceId& name);
    void FillList(const std::vector<LoadedIcon>& icons);
    void lvwIcons_ItemClick(int item);
    void tmrLoad_Timer();
    void tmrUnload_Timer();

    platform::Platform& platform_;
    std::string file_;
    ui::Image& target_;
    Chosen chosen_;
    bool loading_ = false;
};
