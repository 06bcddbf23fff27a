#include "app/PanelHost.h"

#include <utility>

#include "model/Store.h"
#include "views/NotchUI.h"

namespace noonward {
namespace {

constexpr double shrunkWidth = 0.94;
constexpr double shrunkHeight = 0.8;
constexpr double raised = 8;  // points

enum Form { welcome, settings, ribbon };

}  // namespace

PanelHost::PanelHost(Store& store, NotchUI& ui, std::function<void()> onCopyInvite)
    : store_(store),
      ui_(ui),
      welcome_(store, ui,
               [&store, &ui](bool choosePlaces) {
                   store.markWelcomed();
                   ui.welcomeShown = false;
                   ui.settingsShown = choosePlaces;
               }),
      ribbon_(store, ui, {.onCopyInvite = std::move(onCopyInvite)}) {}

kit::View PanelHost::body(Scheme scheme, Backing backing) const {
    // What cannot be seen through would leave black around it.
    const bool shown = ui_.panelShown() || backing == Backing::square;
    return content(scheme, backing)
        .scale(shown ? 1 : shrunkWidth, shown ? 1 : shrunkHeight, kit::topCentre)
        .opacity(shown ? 1 : 0)
        .offset(0, shown ? 0 : -raised);
}

kit::View PanelHost::content(Scheme scheme, Backing backing) const {
    const bool settingsShown = ui_.settingsShown() && !ui_.welcomeShown();
    if (!settingsShown) settings_.reset();
    if (ui_.welcomeShown()) return form(Form::welcome, welcome_.body(scheme, backing));
    if (!settingsShown) return form(Form::ribbon, ribbon_.body(scheme, backing));
    if (!settings_) settings_.emplace(store_, ui_, SettingsView::Options{});
    return form(Form::settings, settings_->body(scheme, backing));
}

}  // namespace noonward
