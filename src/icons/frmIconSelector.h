// The dialog that shows every icon of one program file; clicking one chooses it.
#pragma once

#include <string>
#include <vector>

#include "platform/Modules.h"
#include "ui/Form.h"
#include "ui/ListView.h"

struct Program;
namespace icons {
class ModuleFile;
}

class frmIconSelector : public ui::Form {
public:
    // `file`: full path. The chosen icon is drawn into `target`, and its file and identifier go into the program's
    // selection; both stay as they are when the user gives up.
    frmIconSelector(Program& program, std::string file, ui::Image& target);

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

    Program& program_;
    std::string file_;
    ui::Image& target_;
    bool loading_ = false;
};
