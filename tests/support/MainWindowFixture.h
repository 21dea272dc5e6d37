// The main window over the browser's own zones.
#pragma once

#include "app/frmMain.h"
#include "support/BackupFixture.h"

struct MainWindow : BackupFixture {
    void SetUp() override {
        system.seedZones();
        system.seedModules();
    }
    frmMain& window() {
        if (!window_) {
            window_ = std::make_unique<frmMain>(program);
            window_->load();
        }
        return *window_;
    }
    void addZone(const std::string& key) { system.setText(zoneKey(key), "DisplayName", "Zone " + key); }
    // What the window says of a zone: "name|description|flags|recommended|minimum|current".
    std::string summary(int item) {
        window().lvwZones.click(item);
        return shown();
    }
    std::string shown() {
        frmMain& w = window();
        return w.lblZoneName.caption() + "|" + w.lblZoneCaption.caption() + "|" + w.lblFlags.caption() + "|" +
               w.lblRec.caption() + "|" + w.lblMin.caption() + "|" + w.lblCurrent.caption();
    }
    Texts names() { return texts(window().lvwZones); }

    std::unique_ptr<frmMain> window_;
};
