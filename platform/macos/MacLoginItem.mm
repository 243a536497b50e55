#import "platform/macos/MacLoginItem.h"

#import "platform/macos/MacText.h"

#import <ServiceManagement/ServiceManagement.h>

namespace quillary {

LoginItem::Status MacLoginItem::status() const {
    return [[SMAppService mainAppService] status] == SMAppServiceStatusEnabled ? Status::enabled
                                                                               : Status::disabled;
}

Result<> MacLoginItem::registerItem() {
    NSError* error = nil;
    if ([[SMAppService mainAppService] registerAndReturnError:&error]) {
        return {};
    }
    return Failure(MacText::description(error));
}

Result<> MacLoginItem::unregisterItem() {
    NSError* error = nil;
    if ([[SMAppService mainAppService] unregisterAndReturnError:&error]) {
        return {};
    }
    return Failure(MacText::description(error));
}

} // namespace quillary
