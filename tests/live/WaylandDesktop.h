#pragma once

#include <optional>

#include "live/Compositor.h"
#include "live/Session.h"
#include "live/WaylandHand.h"

namespace noonward::test {

/// The session of a Wayland compositor. What there is to see on it is seen in pictures alone.
class WaylandDesktop : public Session {
 protected:
    void SetUp() override { start(1); }
    void start(int scale);

    /// Starts the program and waits until it can be told things.
    void launch();
    /// Opens or closes the ribbon, as a second start does.
    void toggle();
    /// Another program's window, over the whole screen and with the keyboard.
    void showOther();
    /// The keys that it was given, and a "." for each press of a button in it.
    std::string givenToOther() const { return readText(folder / "other"); }
    void seeGiven(const std::string& wanted);
    /// What another program is given to paste.
    std::string paste(const std::string& options) const;

    /// A picture of the whole screen, in pixels.
    class Picture final : public Sight {
     public:
        explicit Picture(const WaylandDesktop& desktop) : desktop_(desktop) {}
        void look();
        QSize size() const { return size_; }

     private:
        std::vector<std::uint8_t> pixels(const QRect& where) override;

        const WaylandDesktop& desktop_;
        QSize size_;
        std::vector<std::uint8_t> bytes_;
    };
    bool isExpanded();
    /// In a place that even the spring's swing back does not reach.
    bool isEarThere();
    bool isFolded();
    bool isPanelSeen();
    bool isRibbonSeen();
    bool areSettingsSeen();
    void hoverNotch();

    static constexpr std::uint32_t otherColour = 0x204020;
    /// In the notch, at the edge that is its own even over a desktop's clock, and so that the
    /// pointer itself hides nothing that is looked for.
    static constexpr QPoint resting{740, 1};
    static constexpr QRect cap{609, 0, 382, 24};
    int panelTop = top;  ///< where it was seen last

    std::optional<Compositor> compositor;
    std::optional<WaylandHand> hand;
    Picture sight{*this};

 private:
    std::string situation() override;
    std::optional<Process> other_;
};

}  // namespace noonward::test
