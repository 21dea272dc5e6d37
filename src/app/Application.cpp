#include "app/Application.h"

#include "errors/ErrorReporter.h"
#include "icons/ExtractIcon.h"
#include "util/basSystem.h"

namespace app {

Application::Application(platform::Platform& system) : Context(system) {
    errors::startReporting(platform);
    errors::reporting.exclamation = [this] {
        return basMain::LoadPicture(platform, basSystem::ProgramFile(platform) + ",2", 32);
    };
}

Application::~Application() {
    errors::stopReporting();
}

}  // namespace app
