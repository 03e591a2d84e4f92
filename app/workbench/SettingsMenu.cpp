#include "app/workbench/SettingsMenu.h"

#include "app/workbench/Commands.h"
#include "runtime/TextSetting.h"

namespace workbench {

void handleSettings(Commands& commands)
{
    QAction* whole = commands.handle("settings.whole-texts", &commands, [](bool on) { python::storeTextSetting(on); });
    whole->setCheckable(true);
    whole->setChecked(python::areTextsWhole());
    QObject::connect(commands.menu("settings-python"), &QMenu::aboutToShow, whole,
                     [whole] { whole->setChecked(python::areTextsWhole()); });
}

} // namespace workbench
