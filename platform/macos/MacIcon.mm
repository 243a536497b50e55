#import "platform/macos/MacIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <cstdint>

namespace quillary::MacIcon {

namespace {

// The layout of QImage::Format_ARGB32_Premultiplied.
constexpr std::uint32_t pixelLayout = static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                      static_cast<std::uint32_t>(kCGBitmapByteOrder32Little);

void draw(NSImage* picture, CGContextRef context, QSize size) {
    NSGraphicsContext* drawing = [NSGraphicsContext graphicsContextWithCGContext:context flipped:NO];
    [NSGraphicsContext saveGraphicsState];
    [NSGraphicsContext setCurrentContext:drawing];
    [drawing setImageInterpolation:NSImageInterpolationHigh];
    [picture drawInRect:NSMakeRect(0, 0, size.width(), size.height())
               fromRect:NSZeroRect
              operation:NSCompositingOperationSourceOver
               fraction:1.0];
    [NSGraphicsContext restoreGraphicsState];
}

QImage rendered(NSImage* picture, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return image;
    }
    image.fill(Qt::transparent);
    CGColorSpaceRef colours = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
    CGContextRef context = CGBitmapContextCreate(
        image.bits(), static_cast<std::size_t>(size.width()), static_cast<std::size_t>(size.height()), 8,
        static_cast<std::size_t>(image.bytesPerLine()), colours, pixelLayout);
    if (context != nullptr) {
        draw(picture, context, size);
    }
    CGContextRelease(context);
    CGColorSpaceRelease(colours);
    return image;
}

class ImageEngine final : public QIconEngine {
public:
    explicit ImageEngine(NSImage* picture) : m_picture(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const double ratio = painter->device()->devicePixelRatio();
        painter->drawImage(rect, rendered(m_picture, (QSizeF(rect.size()) * ratio).toSize()));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return QPixmap::fromImage(rendered(m_picture, size));
    }

    [[nodiscard]] QIconEngine* clone() const override { return new ImageEngine(m_picture); }

private:
    NSImage* m_picture;
};

} // namespace

QIcon icon(NSImage* image) {
    // The icon owns its engine.
    return QIcon(new ImageEngine(image));
}

NSImage* image(const QIcon& icon, int side) {
    constexpr int densest = 2;
    CGImageRef pixels = icon.pixmap(QSize(side * densest, side * densest), 1.0).toImage().toCGImage();
    NSImage* made = [[NSImage alloc] initWithCGImage:pixels size:NSMakeSize(side, side)];
    CGImageRelease(pixels);
    return made;
}

} // namespace quillary::MacIcon
