#pragma once

#include <QImage>
#include <functional>
#include <string>
#include <unordered_map>

namespace kit {

/// Small pictures that are drawn often, kept by key. A key tells everything the picture depends
/// on, scale included.
class Tiles {
 public:
    /// The picture of `key`, made by `make` where it is not kept yet.
    const QImage& get(const std::string& key, const std::function<QImage()>& make);

    void clear() { images_.clear(); }

 private:
    std::unordered_map<std::string, QImage> images_;
};

}  // namespace kit
