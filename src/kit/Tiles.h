#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

namespace kit {

class Node;

/// Small pictures that are drawn often, kept by key. A key tells everything the picture depends
/// on, scale included.
class Tiles {
 public:
    /// The picture of `key`, made by `make` where it is not kept yet.
    const QImage& get(const std::string& key, const std::function<QImage()>& make);

    void clear() { images_.clear(); }

    /// The picture of a whole view that glides: `make` is asked again once another view, or
    /// another size in pixels, is asked for. Views never change, so the same view looks the same.
    const QImage& whole(const std::shared_ptr<const Node>& view, const QSize& pixels,
                        const std::function<QImage()>& make);
    /// Lets go of that picture; for when nothing glides any more.
    void forgetWhole() { whole_ = {}; }

 private:
    struct Whole {
        std::shared_ptr<const Node> view;
        QSize pixels;
        QImage image;
    };

    Whole whole_;
    std::unordered_map<std::string, QImage> images_;
};

}  // namespace kit
