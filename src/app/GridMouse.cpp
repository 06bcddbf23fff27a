#include "app/GridMouse.h"

#include <chrono>
#include <utility>
#include <vector>

#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/theme/Metrics.h"
#include "views/theme/PanelChrome.h"

namespace noonward {
namespace {

using Hours = std::chrono::duration<double, std::ratio<3600>>;

constexpr double spaceAbove = 8;  // points around the rows that count as the grid
constexpr double spaceBelow = 4;
constexpr Hours reach(0.1);  // around the meeting

}  // namespace

GridMouse::GridMouse(Store& store, NotchUI& ui) : store_(store), ui_(ui) {}

bool GridMouse::listens() const {
    return ui_.panelShown() && !ui_.settingsShown() && !ui_.welcomeShown() && !store_.timeQuery();
}

bool GridMouse::onGrid(const QPointF& at) const {
    std::vector<bool> hidden;
    for (const Row& row : store_.rows())
        hidden.push_back(store_.isHidden(row));
    const double top = stripeHeight + Metrics::top;
    const double bottom = top + Metrics::rowsHeight(hidden) + spaceBelow;
    return at.x() >= Metrics::gridX && at.x() < Metrics::gridX + Metrics::gridWidth &&
           at.y() >= top - spaceAbove && at.y() <= bottom;
}

bool GridMouse::onProposal(const QPointF& at) const {
    if (!store_.proposal()) return false;
    const Hours pointer((at.x() - Metrics::gridX) / Metrics::pitch + store_.scroll());
    const Hours start = *store_.proposal() - store_.dayStart();
    return pointer >= start - reach &&
           pointer <= start + std::chrono::minutes(store_.duration()) + reach;
}

bool GridMouse::press(const QPointF& at) {
    drag_.reset();
    if (!listens() || !onGrid(at)) return false;
    if (!onProposal(at)) store_.propose(store_.column(at.x() - Metrics::gridX, Metrics::pitch));
    if (store_.proposal()) drag_ = Drag{at.x(), *store_.proposal()};
    return true;
}

bool GridMouse::move(const QPointF& at) {
    if (!listens() || !drag_) return false;
    const Hours offset((at.x() - drag_->x) / Metrics::pitch);
    store_.place(drag_->from + std::chrono::round<Instant::duration>(offset));
    return true;
}

bool GridMouse::release() {
    // Let go of elsewhere, too: in the settings it would go on when they are left.
    return std::exchange(drag_, std::nullopt) && listens();
}

}  // namespace noonward
