#include "host/icons/HVIconStore.h"

#include "host/icons/HVSvgIconEngine.h"

#include <QHash>

namespace {

struct Entry
{
    const char* name;
    const char* file;
    const char* accent = "";
};

constexpr const char* g_go = "#1a7f37/#57d37a";
constexpr const char* g_halt = "#c62828/#ff7b72";
constexpr const char* g_caution = "#9a6700/#e3b341";
constexpr const char* g_notice = "#0b62b8/#79b8ff";

// clang-format off
constexpr Entry g_entries[] = {
    // Scripts, plug-ins and packages
    {"pythoneditor24", "file-code"}, {"pythonrun24", "player-play", g_go}, {"pythonstop24", "player-stop", g_halt},
    {"pythondebug24", "bug"}, {"pythonplugins24", "puzzle"}, {"python_plugin_16", "puzzle"},
    {"python_atb_tester_16", "flask"}, {"python_doc_24", "book-2"}, {"python_package_24", "package"},
    {"python_24", "brand-python"}, {"console_24", "terminal-2"},
    {"data_in_python_plugin_16", "file-import"}, {"data_out_python_plugin_16", "file-export"},
    {"continue_24", "player-track-next", g_go}, {"pause_24", "player-pause"},
    {"step_into_24", "step-into"}, {"step_out_24", "step-out"},
    // Files and editing
    {"new_script_24", "file-plus"}, {"projectopen24", "folder-open"}, {"folder_24", "folder"}, {"save24", "device-floppy"},
    {"text_file_24", "file-text"}, {"find_in_file_24", "file-search"}, {"import_24", "upload"}, {"export_24", "download"},
    {"undo_24", "arrow-back-up"}, {"redo_24", "arrow-forward-up"}, {"cut_24", "cut"}, {"copy_24", "copy"},
    {"paste_24", "clipboard"}, {"select_all_24", "select-all"}, {"clear_24", "trash"}, {"recent_24", "history"},
    {"zoommode16", "search"}, {"find_next_16", "chevron-down"}, {"find_previous_16", "chevron-up"}, {"filter_16", "filter"},
    // Windows and the application
    {"messages_24", "message"}, {"docks_24", "layout-bottombar"}, {"cascade_24", "box-multiple"}, {"tile_24", "layout-grid"},
    {"tabs_24", "layout-cards"}, {"split_24", "layout-columns"}, {"next_24", "arrow-right"}, {"previous_24", "arrow-left"},
    {"up_24", "arrow-up"}, {"down_24", "arrow-down"}, {"to_end_16", "arrow-bar-to-down"},
    {"add_16", "plus"}, {"remove_16", "minus"}, {"close_16", "x"}, {"refresh", "refresh"}, {"check_16", "check"},
    {"list_24", "list"}, {"pin_16", "pin"}, {"show_16", "eye"}, {"hide_16", "eye-off"},
    {"settings_24", "settings"}, {"options_24", "adjustments-horizontal"}, {"exit_24", "logout"},
    {"theme_system_24", "device-desktop"}, {"theme_light_24", "sun"}, {"theme_dark_24", "moon"},
    {"help_24", "help"}, {"about_24", "info-circle"}, {"external_link_16", "external-link"}, {"web_24", "world"},
    // States
    {"read_only_24", "lock", g_caution}, {"error_16", "alert-circle", g_halt}, {"warning_16", "alert-triangle", g_caution},
    {"information_16", "info-circle", g_notice}, {"success_16", "circle-check", g_go},
    // Data and views
    {"atbseismicsmall", "wave-sine"}, {"2dlinesmall", "timeline"}, {"volume_24", "cube"}, {"horizon_24", "stack-2"},
    {"fault_24", "vector-triangle"}, {"polygon_24", "polygon"}, {"well_24", "map-pin"}, {"point_24", "point"},
    {"map_24", "map"}, {"color_bar_24", "palette"}, {"blending_24", "layers-intersect"}, {"opacity_24", "droplet"},
    {"chart_24", "chart-line"}, {"histogram_24", "chart-histogram"}, {"measure_24", "ruler"},
    {"zoom_in_24", "zoom-in"}, {"zoom_out_24", "zoom-out"},
};
// clang-format on

} // namespace

QIcon HVIconStore::icon(const QString& name)
{
    static const auto entries = [] {
        QHash<QString, const Entry*> byName;
        for (const Entry& entry : g_entries)
            byName.insert(QLatin1String(entry.name), &entry);
        return byName;
    }();
    const Entry* entry = entries.value(name);
    if (!entry)
        return {};
    return QIcon(new HVSvgIconEngine(QStringLiteral(":/strativo/icons/%1.svg").arg(QLatin1String(entry->file)),
                                     QLatin1String(entry->accent)));
}
