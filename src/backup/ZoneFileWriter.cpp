#include "backup/ZoneFileWriter.h"

#include "backup/BackupFile.h"
#include "backup/ZoneFile.h"
#include "icons/IconReference.h"
#include "zones/ZoneRecord.h"

namespace backup {

namespace {

// "" for a value that is missing, or is no number.
std::string fieldText(const NumberReading& number) {
    return number.present() ? number.display : std::string();
}

ZoneFields fieldsOf(forms::Context& context, const std::string& zone) {
    const zones::ZoneRecord record = zones::readZone(context.registry, zone);
    expectZone(record.found, zone);
    return {icons::referenceOrDefault(context.platform, record.texts.icon.text).text(),
            record.texts.name.text,
            record.texts.description.text,
            fieldText(record.levels.current),
            fieldText(record.levels.minimum),
            fieldText(record.levels.recommended),
            fieldText(record.flags)};
}

}  // namespace

void writeZones(forms::Context& context, const std::string& baseName, const std::string& description,
                const std::vector<std::string>& zones) {
    BackupFile file(context.platform, context.registry, baseName + ".tvf");
    file.line(std::string(DescriptionMark) + description);
    for (const std::string& zone : zones) {
        file.line(joined(fieldsOf(context, zone)));
        file.endOfZone();
    }
    file.close();
}

}  // namespace backup
