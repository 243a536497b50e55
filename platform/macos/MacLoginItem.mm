#import "platform/macos/MacLoginItem.h"

#import "platform/macos/MacText.h"

#import <ServiceManagement/ServiceManagement.h>

namespace quillary {

LoginItem::Status MacLoginItem::status() const {
    return [[SMAppService mainAppService] status] == SMAppServiceStatusEnabled ? Status::enabled
                                                                               : Status::disabled;
}

std::optional<std::string> MacLoginItem::registerItem() {
    NSError* error = nil;
    if ([[SMAppService mainAppService] registerAndReturnError:&error]) {
        return std::nullopt;
    }
    return MacText::description(error);
}

std::optional<std::string> MacLoginItem::unregisterItem() {
    NSError* error = nil;
    if ([[SMAppService mainAppService] unregisterAndReturnError:&error]) {
        return std::nullopt;
    }
    return MacText::description(error);
}

} // namespace quillary
