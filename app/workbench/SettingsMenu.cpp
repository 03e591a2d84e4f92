#include "app/workbench/SettingsMenu.h"

#include "host/services/HVIconStore.h"
#include "runtime/TextSetting.h"

#include <QCoreApplication>
#include <QMenu>

namespace workbench {

void fillSettingsMenu(QMenu& menu)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("workbench::SettingsMenu", text); };
    QMenu* submenu = menu.addMenu(HVIconStore::icon(QStringLiteral("python_24")), tr("Python"));
    submenu->setToolTipsVisible(true);
    QAction* whole = submenu->addAction(tr("Whole Unicode texts"));
    whole->setCheckable(true);
    whole->setToolTip(tr("Hand names and other texts over to scripts with all their characters"));
    whole->setStatusTip(whole->toolTip());
    whole->setChecked(python::areTextsWhole());
    QObject::connect(submenu, &QMenu::aboutToShow, whole, [whole] { whole->setChecked(python::areTextsWhole()); });
    QObject::connect(whole, &QAction::triggered, whole, [](bool on) { python::storeTextSetting(on); });
}

} // namespace workbench
