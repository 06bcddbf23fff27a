#include <gtest/gtest.h>

#include <cmath>

#include "kit/Blur.h"
#include "kit/Damage.h"
#include "kit/OffScreen.h"
#include "kit/Png.h"
#include "kit/RoundedPath.h"
#include "kit/Scroll.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Tile.h"

namespace kit {
namespace {

const Environment environment{.font = systemFont(13), .colour = black};
constexpr Colour teal = Colour::rgb(0x0094B3);
constexpr Colour ground = Colour::rgb(0x081E32);

QImage painted(const View& view, double scale = 2) {
    return renderOffScreen(view, environment, scale);
}

TEST(Painting, BlendsFlatColoursExactly) {
    const QImage image = painted(zstack(centred,
                                        {
                                            rectangle().fill(ground),
                                            rectangle().fill(teal.opacity(0.62)),
                                        })
                                     .frame({.width = 10, .height = 10}));
    const QColor colour = image.pixelColor(10, 10);
    EXPECT_NEAR(colour.red(), 8 * 0.38, 1);
    EXPECT_NEAR(colour.green(), 30 * 0.38 + 148 * 0.62, 1);
    EXPECT_NEAR(colour.blue(), 50 * 0.38 + 179 * 0.62, 1);
    EXPECT_EQ(colour.alpha(), 255);
}

// Wherever a shape stands between pixels, its edges are sharp and at most half a pixel off.
TEST(Painting, KeepsEdgesOnPixels) {
    for (double x = 3; x < 5; x += 0.13) {
        const QImage image =
            painted(zstack(topLeading,
                           {rectangle().fill(teal).frame({.width = 10, .height = 4}).offset(x, 2)})
                        .frame({.width = 30, .height = 10, .alignment = topLeading}));
        int from = -1;
        int until = -1;
        for (int column = 0; column < image.width(); ++column) {
            const int alpha = qAlpha(image.pixel(column, 8));
            EXPECT_TRUE(alpha == 0 || alpha == 255) << x;
            if (alpha == 255 && from < 0) from = column;
            if (alpha == 255) until = column + 1;
        }
        EXPECT_NEAR(from, 2 * x, 0.5) << x;
        EXPECT_NEAR(until, 2 * (x + 10), 0.5) << x;
    }
}

TEST(Painting, StrokesInsideTheEdge) {
    const QImage image =
        painted(roundedRectangle(8).strokeInside(teal, 2).frame({.width = 34, .height = 40}));
    for (const int x : {0, 3, 64, 67})
        EXPECT_EQ(image.pixel(x, 40), teal.qcolor().rgba()) << x;
    for (const int x : {4, 34, 63})
        EXPECT_EQ(image.pixel(x, 40), 0U) << x;
    EXPECT_EQ(image.pixel(0, 0), 0U);
}

TEST(RoundedPath, StaysInsideAndIsSymmetric) {
    const QRectF rect(0, 0, 80, 50);
    for (const CornerStyle style : {CornerStyle::circular, CornerStyle::continuous}) {
        for (const double radius : {0.0, 1.0, 6.0, 14.0, 25.0, 900.0}) {
            const QPainterPath path = roundedPath(rect, CornerRadii::all(radius), style);
            EXPECT_TRUE(rect.adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(path.boundingRect()));
            EXPECT_EQ(path.boundingRect().toRect(), rect.toRect());
            for (double x = 0.5; x < 40; x += 1) {
                for (double y = 0.5; y < 25; y += 1) {
                    const bool inside = path.contains(QPointF(x, y));
                    EXPECT_EQ(inside, path.contains(QPointF(80 - x, y))) << x << ' ' << y;
                    EXPECT_EQ(inside, path.contains(QPointF(x, 50 - y))) << x << ' ' << y;
                    const double r = std::min(radius, 25.0);
                    const double out = std::hypot(std::max(0.0, r - x), std::max(0.0, r - y)) - r;
                    if (style == CornerStyle::circular && std::abs(out) > 0.05) {
                        EXPECT_EQ(inside, out < 0) << radius << ' ' << x << ' ' << y;
                    }
                }
            }
        }
    }
}

// A continuous corner touches the diagonal where the circular one does, and starts to bend sooner.
TEST(RoundedPath, BendsEarlierWhenContinuous) {
    const QRectF rect(0, 0, 200, 200);
    const QPainterPath round = roundedPath(rect, CornerRadii::all(26), CornerStyle::circular);
    const QPainterPath smooth = roundedPath(rect, CornerRadii::all(26), CornerStyle::continuous);
    const double diagonal = 26 * (1 - std::sqrt(0.5));
    for (const QPainterPath& path : {round, smooth}) {
        EXPECT_FALSE(path.contains(QPointF(diagonal - 0.2, diagonal - 0.2)));
        EXPECT_TRUE(path.contains(QPointF(diagonal + 0.2, diagonal + 0.2)));
    }
    EXPECT_TRUE(round.contains(QPointF(27, 0.05)));
    EXPECT_FALSE(smooth.contains(QPointF(27, 0.05)));
    EXPECT_TRUE(smooth.contains(QPointF(42, 0.01)));
}

TEST(Clip, CutsCornersAndNothingElse) {
    const View panel = View(rectangle().fill(teal))
                           .clip(roundedRectangle(CornerRadii{18, 18, 26, 26}))
                           .frame({.width = 120, .height = 100});
    const QImage image = painted(panel);
    const QPainterPath outline =
        roundedPath({0, 0, 240, 200}, {36, 36, 52, 52}, CornerStyle::continuous);
    int halves = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 240; ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            const QRectF pixel(x, y, 1, 1);
            if (outline.contains(pixel.adjusted(-0.5, -0.5, 0.5, 0.5))) {
                ASSERT_EQ(alpha, 255) << x << ' ' << y;
            } else if (!outline.intersects(pixel.adjusted(-0.5, -0.5, 0.5, 0.5))) {
                ASSERT_EQ(alpha, 0) << x << ' ' << y;
            } else if (alpha > 0 && alpha < 255) {
                ++halves;
            }
        }
    }
    EXPECT_GT(halves, 40) << "the corners must be smooth";
}

TEST(Mask, FadesAlongTheWidth) {
    const QImage image = painted(View(rectangle().fill(teal))
                                     .mask({{0, 0}, {0.2, 1}, {0.8, 1}, {1, 0}})
                                     .frame({.width = 100, .height = 10}));
    for (int x = 0; x < 200; ++x) {
        const double fromEdge = std::min(x + 0.5, 199.5 - x);
        EXPECT_NEAR(qAlpha(image.pixel(x, 10)), std::min(1.0, fromEdge / 40) * 255, 2) << x;
    }
}

TEST(Effects, FadeAsAWholeAndScaleAboutAPoint) {
    const View overlapping = zstack(centred, {rectangle().fill(teal), rectangle().fill(teal)});
    const QImage faded = painted(overlapping.opacity(0.5).frame({.width = 4, .height = 4}));
    EXPECT_NEAR(qAlpha(faded.pixel(4, 4)), 128, 1);
    EXPECT_TRUE(
        painted(overlapping.opacity(0).frame({.width = 4, .height = 4})).pixelColor(4, 4).alpha() ==
        0);

    const QImage scaled = painted(View(rectangle().fill(teal))
                                      .scale(0.5, 0.25, topCentre)
                                      .frame({.width = 40, .height = 40}));
    EXPECT_EQ(qAlpha(scaled.pixel(19, 5)), 0);
    EXPECT_EQ(qAlpha(scaled.pixel(20, 5)), 255);
    EXPECT_EQ(qAlpha(scaled.pixel(59, 19)), 255);
    EXPECT_EQ(qAlpha(scaled.pixel(40, 20)), 0);
}

TEST(Shadow, GlowsAroundAndStaysWithinItsReach) {
    const QImage image = painted(zstack(centred, {View(rectangle().fill(teal))
                                                      .frame({.width = 2, .height = 20})
                                                      .shadow(teal.opacity(0.7), 4)})
                                     .frame({.width = 40, .height = 40}));
    EXPECT_EQ(image.pixel(40, 40), teal.qcolor().rgba());
    const int near = qAlpha(image.pixel(36, 40));
    const int far = qAlpha(image.pixel(31, 40));
    EXPECT_GT(near, far);
    EXPECT_GT(far, 0);
    EXPECT_EQ(qAlpha(image.pixel(24, 40)), 0);
    EXPECT_EQ(qAlpha(image.pixel(43, 40)), near) << "the glow must be even on both sides";
}

// A glow that is painted piece by piece must be the glow that is painted whole.
TEST(Shadow, KnowsNoClip) {
    const View mark = View(rectangle().fill(teal))
                          .frame({.width = 2, .height = 80})
                          .shadow(teal.opacity(0.7), 4)
                          .frame({.width = 100, .height = 100});
    const QImage whole = painted(mark);
    const QImage pieces = painted(mark.clip(roundedRectangle(26)));
    for (int y = 84; y < 116; ++y) {
        for (int x = 80; x < 120; ++x)
            EXPECT_EQ(pieces.pixel(x, y), whole.pixel(x, y)) << x << y;
    }
    for (int y = 20; y < 180; ++y)
        EXPECT_EQ(pieces.pixel(96, y), whole.pixel(96, y)) << y;
}

// Wherever two trees look different: in what is scaled or smeared, and at the edges of a scroll.
TEST(Damage, CoversAllThatLooksOtherwise) {
    const auto column = [](int boxes) {
        return scroll(vstack({}, Views(static_cast<std::size_t>(boxes),
                                       View(rectangle().fill(teal)).frame({.height = 40}))),
                      0, [](double) {})
            .frame({.height = 60});
    };
    const auto dot = [](Colour colour) {
        return zstack(centred, {rectangle().fill(colour).frame({.width = 10, .height = 10})});
    };
    struct Case {
        const char* name;
        View before, after;
    };
    for (const auto& [name, before, after] :
         {Case{"scaled", dot(teal).scale(4, 4), dot(ground).scale(4, 4)},
          {"blurred", dot(teal).blur(6), dot(ground).blur(6)},
          {"glowing", dot(teal).shadow(teal, 6), dot(ground.opacity(0.5)).shadow(teal, 6)},
          {"longer than before", column(1), column(2)}}) {
        const auto inFrame = [](const View& view) {
            return layOut(view.frame({.width = 80, .height = 80}), environment);
        };
        const Placed trees[] = {inFrame(before), inFrame(after)};
        Tiles tiles;
        const QImage one = paintOffScreen(trees[0], 1, tiles);
        const QImage other = paintOffScreen(trees[1], 1, tiles);
        QRegion damaged;
        for (const QRectF& rect : damage(trees[0], trees[1]))
            damaged += rect.toAlignedRect();
        EXPECT_NE(one, other) << name;
        for (int i = 0; i < 80 * 80; ++i) {
            const QPoint at(i % 80, i / 80);
            EXPECT_TRUE(one.pixel(at) == other.pixel(at) || damaged.contains(at)) << name;
        }
    }
}

// Boxes of 40 in room for 60, scrolled down by 30.
TEST(Scroll, FadesWhereItCutsSomethingOff) {
    const auto alphaAt = [](double position, int y) {
        const View boxes = vstack({}, Views(3, View(rectangle().fill(teal)).frame({.height = 40})));
        return qAlpha(
            painted(scroll(boxes, position, [](double) {}).frame({.width = 20, .height = 60}), 1)
                .pixel(10, y));
    };
    for (const auto& [position, top, bottom] :
         {std::tuple(0, true, false), {30, false, false}, {60, false, true}}) {
        EXPECT_EQ(alphaAt(position, 0) == 255, top) << position;
        EXPECT_EQ(alphaAt(position, 59) == 255, bottom) << position;
        EXPECT_EQ(alphaAt(position, 30), 255) << position;
    }
}

TEST(Blur, KeepsWhatItSpreads) {
    QImage image(61, 61, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (int y = 25; y < 36; ++y) {
        for (int x = 25; x < 36; ++x)
            image.setPixel(x, y, 0xFFFFFFFF);
    }
    blur(image, 4);
    double sum = 0;
    for (int y = 0; y < 61; ++y) {
        for (int x = 0; x < 61; ++x) {
            sum += qAlpha(image.pixel(x, y));
            EXPECT_NEAR(qAlpha(image.pixel(x, y)), qAlpha(image.pixel(y, x)), 2);
        }
    }
    EXPECT_NEAR(sum, 121 * 255.0, 121 * 255 * 0.05);
}

// A kept picture and the view itself must not differ by a single bit, wherever it is laid.
TEST(Tile, IsTheViewItself) {
    const auto build = [] {
        return View(roundedRectangle(6).fill(teal.opacity(0.62)))
            .frame({.width = 30, .height = 44});
    };
    const View kept = tile("cell", {30, 44}, {.name = "9"}, build);
    int built = 0;
    const View counted = tile("counted", {30, 44}, {.name = "9"}, [&] {
        ++built;
        return build();
    });
    for (const double scale : {1.0, 2.0, 1.25}) {
        const auto at = [&](const View& view) {
            return painted(view.offset(7, 3).frame({.width = 60, .height = 60}), scale);
        };
        EXPECT_EQ(at(kept), at(build())) << scale;
    }
    painted(hstack({}, {counted, counted, counted}));
    EXPECT_EQ(built, 1);
}

TEST(Png, GivesThePictureBack) {
    const QImage image = painted(View(rectangle().fill(teal.opacity(0.5)))
                                     .clip(roundedRectangle(9))
                                     .frame({.width = 33, .height = 21}));
    QImage read;
    ASSERT_TRUE(read.loadFromData(encodePng(image), "PNG"));
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGBA8888),
              image.convertToFormat(QImage::Format_RGBA8888));
    EXPECT_TRUE(encodePng(QImage()).isEmpty());
}

}  // namespace
}  // namespace kit
