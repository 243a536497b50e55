#pragma once

#include <QImage>

#include <map>
#include <memory>
#include <string>

namespace quillary {

class IconCache;

/// Icons rendered at device pixels: for each path one sprite at the resting size, which draws as a plain
/// copy, and a larger one that magnified icons are scaled down from.
class IconSprites {
public:
    explicit IconSprites(std::shared_ptr<IconCache> icons);

    /// The sizes that sprites are wanted at. Device pixels, along one side; a change drops all sprites.
    void setSizes(int resting, int largest);

    /// The path's sprite for an icon drawn this large (device pixels): the resting one when it fits exactly.
    [[nodiscard]] const QImage& sprite(const std::string& path, double drawnSize);

private:
    struct Pair {
        QImage resting;
        QImage largest;
    };
    [[nodiscard]] QImage render(const std::string& path, int size);

    std::shared_ptr<IconCache> icons;
    std::map<std::string, Pair, std::less<>> sprites;
    int restingSize = 0;
    int largestSize = 0;
};

} // namespace quillary
