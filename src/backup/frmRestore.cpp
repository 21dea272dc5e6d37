#include "backup/frmRestore.h"

#include "backup/BackupFile.h"
#include "backup/Catalogue.h"
#include "backup/ZoneFile.h"
#include "forms/WindowProc.h"
#include "icons/ExtractIcon.h"
#include "ui/Hourglass.h"
#include "ui/Layout.h"
#include "util/Error.h"
#include "util/basSystem.h"
#include "util/characters.h"
#include "util/clsStrings.h"
#include "util/procedure.h"
#include "zones/zones.h"

namespace {

constexpr int WatchInterval = 250, FillInterval = 10;  // milliseconds
constexpr std::uint32_t FillTime = 150;                // milliseconds, of adding zones in one go
constexpr std::size_t FillSteps = 16;                  // zones from one look at the clock to the next

using namespace ui::layout;
constexpr ui::Twips Width = 7500, Left = 2250, LabelWidth = 3000;
constexpr ui::Twips Column = Margin + Left + Margin, ColumnWidth = Width - Margin - Column;
constexpr int IconSpacing = 75;  // pixels at 96 to the inch
constexpr ui::Twips IconRow = IconSpacing * 15, ListBorder = 60;
constexpr ui::Twips ListsTop = 345, ZonesHeight = 3 * IconRow + ListBorder;
constexpr ui::Twips PreviewTop = ListsTop + ZonesHeight + Margin, PreviewHeight = 2595;
constexpr ui::Twips ListsBottom = PreviewTop + PreviewHeight, ButtonsTop = ListsBottom + Margin;
constexpr ui::Twips TextLeft = 720, TextWidth = ColumnWidth - TextLeft - Margin;
constexpr ui::Twips FrameWidth = ColumnWidth - 2 * Margin, ValueLeft = 2310,
                    ValueWidth = FrameWidth - ValueLeft - Margin;
constexpr ui::Twips RowTop = 285, Row = 240;

// "At a glance", row by row.
ui::Bounds captionPlace(int row) {
    return {Margin, RowTop + row * Row, ValueLeft - Margin, 225};
}
ui::Bounds valuePlace(int row) {
    return {ValueLeft, RowTop + row * Row, ValueWidth, 225};
}

}  // namespace

struct frmRestore::Filling {
    explicit Filling(platform::Platform& platform) : icons(platform) {}

    std::vector<std::string> lines;
    std::size_t next = 1;  // after the description
    backup::ZoneFields zone;
    clsStrings strings;
    basMain::IconCache icons;
};

frmRestore::frmRestore(forms::Context& context, backup::Restoration& restoration)
    : Form(context.platform.desktop, Kind::Dialog, "frmRestore", "Preview/Restore Backup",
           {Width, ButtonsTop + ButtonHeight + Margin}),
      // ---- left: the backups
      Label1(*this, "Label1", {Margin, Margin, LabelWidth, LabelHeight}, "Please select a file to preview"),
      ListView1(*this, "ListView1", {Margin, ListsTop, Left, ListsBottom - ListsTop}, ui::ListView::View::Report,
                ui::ListView::Clicks::OnSelect),
      // ---- right: the zones of the selected backup
      lblWritten(*this, "lblWritten",
                 {Margin + LabelWidth + Margin, Margin, Width - LabelWidth - 3 * Margin, LabelHeight}, ""),
      ilsZoneIcons(*this, "ilsZoneIcons", 32),
      lvwZones(*this, "lvwZones", {Column, ListsTop, ColumnWidth, ZonesHeight}, ui::ListView::View::Icon,
               ui::ListView::Clicks::OnSelect),
      // ---- below them the selected zone:  [icon]  name
      //                                             description
      //                                     At a glance: current, minimum, recommended level, flags
      picInfo(*this, "picInfo", {Column, PreviewTop, ColumnWidth, PreviewHeight}),
      picZoneIcon(picInfo, "picZoneIcon", {Margin, Margin, 480, 480}),
      lblZoneName(picInfo, "lblZoneName", {TextLeft, Margin, TextWidth, 225}, ""),
      lblZoneCaption(picInfo, "lblZoneCaption", {TextLeft, 360, TextWidth, 615}, ""),
      zzzfraInfo(picInfo, "zzzfraInfo", {Margin, 1050, FrameWidth, RowTop + 4 * Row + Margin}, "At a glance"),
      zzzlblInfo("zzzlblInfo"),
      lblCurrent(captioned(zzzlblInfo, zzzfraInfo, captionPlace(0), "Current Level: "), "lblCurrent", valuePlace(0),
                 ""),
      lblMin(captioned(zzzlblInfo, zzzfraInfo, captionPlace(1), "Minimum Level: "), "lblMin", valuePlace(1), ""),
      lblRec(captioned(zzzlblInfo, zzzfraInfo, captionPlace(2), "Recommended Level: "), "lblRec", valuePlace(2), ""),
      lblFlags(captioned(zzzlblInfo, zzzfraInfo, captionPlace(3), "Flags:"), "lblFlags", valuePlace(3), ""),
      // ----                                                          [Restore] [Delete]
      cmdRestore(*this, "cmdRestore", {Width - 2 * (Margin + ButtonWidth), ButtonsTop, ButtonWidth, ButtonHeight},
                 "Restore"),
      cmdDelete(*this, "cmdDelete", {Width - Margin - ButtonWidth, ButtonsTop, ButtonWidth, ButtonHeight}, "Delete"),
      picHolder(*this, "picHolder", {0, 0, 480, 480}),
      picDummy(*this, "picDummy", {0, 0, 480, 480}),
      tmrWatch(*this, "tmrWatch", WatchInterval),
      tmrFill(*this, "tmrFill", FillInterval),
      context_(context),
      restoration_(restoration) {
    picInfo.makeSunken();
    lblWritten.makeOneLine();
    lblZoneName.makeBold().makeOneLine();
    picHolder.setVisible(false);
    picDummy.setVisible(false);
    lvwZones.setImages(&ilsZoneIcons);
    lvwZones.setIconSpacing({IconSpacing, IconSpacing});

    ListView1.onItemClick = [this](int item) { ListView1_ItemClick(item); };
    lvwZones.onItemClick = [this](int item) { lvwZones_ItemClick(item); };
    cmdRestore.onClick = [this] { cmdRestore_Click(); };
    cmdDelete.onClick = [this] { cmdDelete_Click(); };
    tmrWatch.onTimer = [this] { tmrWatch_Timer(); };
    tmrFill.onTimer = [this] { tmrFill_Timer(); };
    tmrWatch.setEnabled(true);
    setDefaultButton(cmdRestore);
}

frmRestore::~frmRestore() = default;

// Load, unload, watch -------------------------------------------------------------------------------------------

void frmRestore::Form_Load() {
    procedure("frmRestore.Form_Load", [&] {
        basMain::Hook(*this);
        ListView1.setColumn("File", ListView1.width());
        ListBackups();
    });
}

void frmRestore::Form_Unload() {
    procedure("frmRestore.Form_Unload", [&] {
        basMain::Unhook(*this);
        tmrFill.setEnabled(false);
        filling_.reset();
    });
}

// A low screen leaves room for fewer zones, in whole rows.
void frmRestore::Form_Resize() {
    const ui::Twips room = lvwZones.height() + client().height - Margin - cmdRestore.bounds().bottom();
    const int rows = std::max(1, (room - ListBorder) / IconRow);
    lvwZones.stretch(rows * IconRow + ListBorder - lvwZones.height());
    ListView1.setHeight(picInfo.bounds().bottom() - ListsTop);
    setHeight(height() - client().height + cmdRestore.bounds().bottom() + Margin);
}

// The selection plays no part: with none, the buttons do nothing.
void frmRestore::tmrWatch_Timer() {
    procedure("frmRestore.tmrWatch_Timer", [&] {
        cmdRestore.setEnabled(ListView1.count() > 0);
        cmdDelete.setEnabled(ListView1.count() > 0);
    });
}

// The backups ---------------------------------------------------------------------------------------------------

void frmRestore::ListBackups() {
    GetFileInformation(backup::folder(context_.platform), backup::ZoneFiles);
}

void frmRestore::GetFileInformation(const std::string& folder, const std::string& pattern) {
    procedure("frmRestore.GetFileInformation", [&] {
        ListView1.clear();
        ClearPreview();
        lblWritten.setCaption("There are no backups.");

        backup::forEachBackup(context_.platform, folder, pattern, [&](const backup::Listed& listed) {
            ListView1.add({ParseFile(listed.path), 0, listed.path, backup::timeText(listed.written)});
            lblWritten.setCaption("");
        });
    });
}

std::string frmRestore::ParseFile(const std::string& path) {
    return procedure("frmRestore.ParseFile", [&] { return backup::descriptionOfFile(context_.platform, path); });
}

void frmRestore::ListView1_ItemClick(int item) {
    procedure("frmRestore.ListView1_ItemClick", [&] {
        selected_ = ListView1.item(item).tag;
        ClearPreview();
        lblWritten.setCaption("Backup of " + ListView1.item(item).key);
        FillList(selected_);
    });
}

void frmRestore::ClearPreview() {
    tmrFill.setEnabled(false);
    filling_.reset();
    lvwZones.clear();
    ilsZoneIcons.clear();
    picZoneIcon.clear();
    for (ui::Label* label : {&lblZoneName, &lblZoneCaption, &lblCurrent, &lblMin, &lblRec, &lblFlags})
        label->setCaption("");
}

void frmRestore::cmdDelete_Click() {
    procedure("frmRestore.cmdDelete_Click", [&] {
        if (selected_.empty()) return;
        const std::string zoneFile = std::exchange(selected_, {});
        try {
            // The export first: when it is not there, the zone backup stays and the user is told.
            backup::remove(context_.platform, backup::partnerOf(zoneFile));
            backup::remove(context_.platform, zoneFile);
        } catch (const util::Error&) {
            ListBackups();  // what is left of it, not selected
            throw;
        }
        ListBackups();
    });
}

// The zones of one backup ---------------------------------------------------------------------------------------

void frmRestore::FillList(const std::string& path) {
    procedure("frmRestore.FillList", [&] {
        auto filling = std::make_unique<Filling>(context_.platform);
        filling->lines = backup::splitLines(backup::read(context_.platform, path));
        filling_ = std::move(filling);
        ParseInfo();
    });
}

void frmRestore::ParseInfo() {
    procedure("frmRestore.ParseInfo", [&] {
        ilsZoneIcons.add(picDummy.picture());
        AddZones();
        if (lvwZones.count() == 0)
            throw util::Error(util::NumberOutOfRange, "frmRestore", "This backup holds no zones.");
        lvwZones.setSelected(1);
        lvwZones_ItemClick(1);
    });
}

void frmRestore::AddZones() {
    Filling& f = *filling_;
    platform::System& clock = context_.platform.system;
    const std::uint32_t begun = clock.GetTickCount();
    for (; f.next < f.lines.size(); ++f.next) {
        if (f.next % FillSteps == 0 && clock.GetTickCount() - begun >= FillTime) return tmrFill.setEnabled(true);
        backup::readZoneLine(f.strings, f.lines[f.next], f.zone);
        basMain::ExtractIcon(f.icons, icons::referenceOrDefault(context_.platform, f.zone[backup::Icon]), 32,
                             picHolder);
        const int image = ilsZoneIcons.add(picHolder.picture());
        lvwZones.add({f.zone[backup::Name], image, backup::joined(f.zone), {}});
        picHolder.clear();
    }
    tmrFill.setEnabled(false);
    filling_.reset();
}

void frmRestore::tmrFill_Timer() {
    procedure("frmRestore.tmrFill_Timer", [&] {
        if (filling_) AddZones();
    });
}

void frmRestore::lvwZones_ItemClick(int item) {
    procedure("frmRestore.lvwZones_ItemClick", [&] {
        picZoneIcon.clear();
        clsStrings strings;
        const std::int32_t fields = backup::splitFields(strings, lvwZones.item(item).tag);
        const auto field = [&](backup::Field which) { return strings.ElementAsString(which + 1); };
        if (fields == backup::FieldCount) {
            ShowLevel(lblCurrent, field(backup::CurrentLevel), true);
            ShowLevel(lblRec, field(backup::RecommendedLevel), false);
            ShowLevel(lblMin, field(backup::MinimumLevel), false);
            lblFlags.setCaption(field(backup::Flags));
        }
        lblZoneName.setCaption(field(backup::Name));
        lblZoneCaption.setCaption(field(backup::Description));
        basMain::ExtractIcon(context_.platform, field(backup::Icon), "#", 32, picZoneIcon);
    });
}

void frmRestore::ShowLevel(ui::Label& label, const std::string& stored, bool current) {
    label.setCaption(stored.empty() && !current ? zones::MissingLevel : zones::GetSecurity(stored));
}

// Restoring -----------------------------------------------------------------------------------------------------

void frmRestore::cmdRestore_Click() {
    procedure("frmRestore.cmdRestore_Click", [&] {
        if (selected_.empty()) return;
        {
            const ui::Hourglass hourglass(*this);
            if (!restoration_.begin(selected_)) return;
        }
        selected_.clear();
        unload();
    });
}
