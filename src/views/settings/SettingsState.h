#pragma once

#include <QDate>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Published.h"
#include "model/PlaceIdentities.h"
#include "model/Store.h"
#include "reference/City.h"
#include "reference/Geocoder.h"

namespace kit {
class Animations;
}

namespace noonward {

class Holidays;
class LoginItem;
class NotchUI;

/// What one showing of the settings remembers, and what can be done in it. Everything that lasts is
/// changed through the store. The callbacks of its views share it.
class SettingsState : public std::enable_shared_from_this<SettingsState> {
 public:
    struct Services {
        kit::Animations& animations;
        const Holidays& holidays;
        LoginItem* loginItem = nullptr;  ///< null: never started at login
        Geocoder* geocoder = nullptr;    ///< null: every look-up finds nothing
    };

    /// `typed` is the query at first, `editing` the index of the place whose week is open then. All
    /// that is referred to must outlive the state.
    SettingsState(Store& model, NotchUI& notchUI, const Services& used, std::string typed,
                  std::optional<int> editing);

    /// Announces what views show of this state.
    Announcer& changes() { return changes_; }

 private:
    Announcer changes_;

 public:
    Store& store;
    NotchUI& ui;
    const Services services;

    Published<std::string> query;
    Published<QDate> newDayOff;
    Published<std::vector<City>> remote;  ///< what the latest look-up has found
    Published<bool> lookingUp;
    Published<bool> loginOn;
    Published<unsigned> searchFocus;  ///< how often the search field was given the focus
    Published<double> scrolled;       ///< of the left column, points

    /// Who the places are now, in their order.
    const std::vector<PlaceIdentity>& identities() const;
    bool isEditing(PlaceIdentity place) const { return editing_() == place; }
    /// Whether its week is shut, and there for the glide all the same.
    bool isShut(PlaceIdentity place) const { return shut_() == place; }
    void toggleEditing(PlaceIdentity place);

    /// Does something to a place by its present index, if it is still there.
    using Edit = std::function<void(Store& store, int index)>;
    void edit(PlaceIdentity place, const Edit& change) const;
    /// The same for what moves places: they glide.
    void rearrange(PlaceIdentity place, const Edit& change) const;

    /// Runs `changes`: what they move glides.
    void animate(const std::function<void()>& changes) const;

    /// The cities on offer for what is typed.
    std::vector<City> matches() const;
    bool isFull() const;
    void add(const City& city);
    void lookUp();
    void setLogin(bool on);

 private:
    mutable PlaceIdentities identities_;
    Published<std::optional<PlaceIdentity>> editing_;
    Published<std::optional<PlaceIdentity>> shut_;
    unsigned lookUps_ = 0;  // the answer to an earlier one comes too late
};

}  // namespace noonward
