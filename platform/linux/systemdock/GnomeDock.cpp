#include "platform/linux/systemdock/GnomeDock.h"

#include "platform/SystemLog.h"
#include "platform/linux/bus/BoundedCall.h"
#include "platform/linux/glib/GlibText.h"

#include <array>
#include <chrono>
#include <cmath>
#include <string>
#include <utility>

namespace quillary {

namespace {

using Value = Released<GVariant, g_variant_unref>;
using GnomeDockSchema::autohide;
using GnomeDockSchema::showDelay;

constexpr std::chrono::seconds longestSynchronisation{1};

// With these the dock would stay on the screen, or appear for another reason than the pointer resting at the
// edge.
constexpr const char* fixed = "dock-fixed";
constexpr const char* dodgesWindows = "intellihide";
constexpr std::array furtherKeys{fixed, dodgesWindows, "require-pressure-to-show", "show-dock-urgent-notify",
                                 "hotkeys-show-dock"};

Value parsed(const char* text, GSettingsSchema* schema, const char* key) {
    const Released<GSettingsSchemaKey, g_settings_schema_key_unref> found(
        g_settings_schema_get_key(schema, key));
    return Value(
        g_variant_parse(g_settings_schema_key_get_value_type(found.get()), text, nullptr, nullptr, nullptr));
}

bool isFlag(GSettingsSchema* schema, const char* key) {
    return hasSettingsKey(schema, {key, G_VARIANT_TYPE_BOOLEAN});
}

} // namespace

GnomeDock::GnomeDock(GnomeDockSchema::Schema schema, SavedValuesFile file, SystemLog& log)
    : m_schema(std::move(schema)),
      m_settings(g_settings_new_full(m_schema.get(), nullptr, nullptr)),
      m_file(std::move(file)),
      m_log(log),
      m_hidingDelay(GnomeDockSchema::hidingDelay(m_schema.get())) {}

DockPrefs GnomeDock::read() {
    if (isHidden()) {
        return DockPrefs::hidden;
    }
    if (m_file.load().state != SavedValuesFile::State::absent) {
        m_file.remove();
    }
    DockPrefs own;
    if (const Value value(g_settings_get_user_value(m_settings.get(), autohide)); value) {
        own.autohide = g_variant_get_boolean(value.get()) != 0;
    }
    if (const Value value(g_settings_get_user_value(m_settings.get(), showDelay)); value) {
        const double delay = g_variant_get_double(value.get());
        own.delay = std::isfinite(delay) ? std::optional(delay) : std::nullopt;
    }
    if (own == DockPrefs::hidden) {
        own.autohide = false;
    }
    return own;
}

bool GnomeDock::isHidden() const {
    const auto isSet = [this](const char* key) {
        return isFlag(m_schema.get(), key) && g_settings_get_boolean(m_settings.get(), key) != 0;
    };
    const Value delay(g_settings_get_user_value(m_settings.get(), showDelay));
    return isSet(autohide) && delay && g_variant_get_double(delay.get()) == m_hidingDelay && !isSet(fixed) &&
           !isSet(dodgesWindows);
}

bool GnomeDock::canHide() const {
    const auto isFree = [this](const char* key) {
        return g_settings_is_writable(m_settings.get(), key) != 0;
    };
    return isFree(autohide) && isFree(showDelay);
}

void GnomeDock::write(const DockPrefs& prefs) {
    if (!canHide()) {
        m_log.write("Quillary: could not change GNOME's dock: its settings are locked");
        return;
    }
    if (prefs == DockPrefs::hidden) {
        hide();
        return;
    }
    const auto saved = m_file.load();
    // Applied together: the dock never sees some of the changes only, and neither does a crash leave them so.
    g_settings_delay(m_settings.get());
    if (saved.state == SavedValuesFile::State::valid) {
        bringBack(saved.values);
    } else {
        choose(prefs);
    }
    g_settings_apply(m_settings.get());
    m_file.remove();
}

SavedValues GnomeDock::toPutAside() const {
    if (auto saved = m_file.load(); saved.state == SavedValuesFile::State::valid && isHidden()) {
        return std::move(saved.values);
    }
    SavedValues values;
    const auto add = [&](const char* key) {
        const Value value(g_settings_get_user_value(m_settings.get(), key));
        values.emplace(key,
                       value ? std::optional(takeText(g_variant_print(value.get(), FALSE))) : std::nullopt);
    };
    add(autohide);
    add(showDelay);
    for (const char* key : furtherKeys) {
        if (isFlag(m_schema.get(), key)) {
            add(key);
        }
    }
    return values;
}

void GnomeDock::hide() {
    if (const auto stored = m_file.store(toPutAside()); !stored) {
        m_log.write("Quillary: could not hide GNOME's dock: " + stored.error());
        return;
    }
    g_settings_delay(m_settings.get());
    g_settings_set_boolean(m_settings.get(), autohide, TRUE);
    g_settings_set_double(m_settings.get(), showDelay, m_hidingDelay);
    for (const char* key : furtherKeys) {
        if (isFlag(m_schema.get(), key)) {
            g_settings_set_boolean(m_settings.get(), key, FALSE);
        }
    }
    g_settings_apply(m_settings.get());
}

void GnomeDock::bringBack(const SavedValues& values) {
    const auto restore = [&](const char* key) {
        const auto own = values.find(key);
        const bool isKept = own != values.end() && own->second;
        set(key, isKept ? parsed(own->second->c_str(), m_schema.get(), key).get() : nullptr);
    };
    restore(autohide);
    restore(showDelay);
    for (const char* key : furtherKeys) {
        // The user has switched a key on again: leave it.
        if (isFlag(m_schema.get(), key) && g_settings_get_boolean(m_settings.get(), key) == 0) {
            restore(key);
        }
    }
}

void GnomeDock::choose(const DockPrefs& prefs) {
    const Value own(prefs.autohide ? g_variant_ref_sink(g_variant_new_boolean(*prefs.autohide ? TRUE : FALSE))
                                   : nullptr);
    const Value delay(prefs.delay ? g_variant_ref_sink(g_variant_new_double(*prefs.delay)) : nullptr);
    set(autohide, own.get());
    set(showDelay, delay.get());
    for (const char* key : furtherKeys) {
        if (isFlag(m_schema.get(), key) && g_settings_get_boolean(m_settings.get(), key) == 0) {
            set(key, nullptr);
        }
    }
}

void GnomeDock::set(const char* key, GVariant* value) {
    if (value != nullptr && GnomeDockSchema::takes(m_schema.get(), key, value)) {
        g_settings_set_value(m_settings.get(), key, value);
    } else {
        g_settings_reset(m_settings.get(), key);
    }
}

void GnomeDock::synchronise() {
    const BoundedCall<void> call([](GCancellable* /*cancellable*/) { g_settings_sync(); });
    if (!call.returnsWithin(TimeLimit(longestSynchronisation))) {
        m_log.write("Quillary: could not be sure of GNOME's dock: the settings service does not answer");
    }
}

} // namespace quillary
