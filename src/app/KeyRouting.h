#pragma once

#include <functional>

#include "app/Lifetime.h"
#include "platform/Keyboard.h"

namespace noonward {

class MainQueue;
class NotchUI;
class Store;

/// What keys do beyond the model and the state of the windows.
struct KeyActions {
    std::function<void()> closePanel;
    std::function<void()> layoutPanel;
    std::function<void()> copyText;
    std::function<void()> copyPicture;
    std::function<void()> terminate;
    std::function<void()> caretToEnd;  ///< of the focused text field, if there is one
};

/// The keys of the panel. It sees each press before the view that has the keyboard.
class KeyRouting {
 public:
    KeyRouting(Store& store, NotchUI& ui, MainQueue& queue, KeyActions actions);

    /// Does what the press stands for; false when it is to go on to the focused view. Call it only
    /// while the panel is visible.
    bool handleKey(const KeyPress& key);

 private:
    struct Binding;
    enum class Context;

    Context context(const KeyPress& press) const;
    void step(const KeyPress& press, int byMinutes);
    void type(const KeyPress& press);
    void switchFormat();

    Store& store_;
    NotchUI& ui_;
    MainQueue& queue_;
    KeyActions actions_;
    Lifetime lifetime_;
};

}  // namespace noonward
