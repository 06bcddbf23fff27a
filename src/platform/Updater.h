#pragma once

#include <string>

namespace noonward {

/// What an updater asks the program, and tells it, about the updates it finds. Main thread only.
class UpdateListener {
 public:
    /// An update that is to be shown.
    struct Showing {
        bool byUpdater = false;
        bool askedByUser = false;
        std::string version;  ///< as shown to the user
    };

    virtual ~UpdateListener() = default;
    /// Whether the program itself reminds of what scheduled checks have found.
    virtual bool takesPartInGentleReminders() const = 0;
    /// Whether the updater shows a scheduled update by itself.
    virtual bool updaterShowsScheduled(bool inImmediateFocus) const = 0;
    virtual void willShow(const Showing& update) = 0;
    virtual void userHasSeen() = 0;      ///< the user has turned to the update
    virtual void sessionIsEnding() = 0;  ///< installed, skipped or dismissed
};

/// Looks for newer versions of the program and shows what it finds.
class Updater {
 public:
    virtual ~Updater() = default;
    /// Starts looking, now and then; the listener must outlive this object.
    virtual void start(UpdateListener& listener) = 0;
    virtual void checkForUpdates() = 0;
};

}  // namespace noonward
