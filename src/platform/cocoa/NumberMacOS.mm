#import "platform/cocoa/Number.h"

namespace vistrel::cocoa::native {

bool isBoolean(NSNumber* number) {
    return CFGetTypeID(reinterpret_cast<CFTypeRef>(number)) == CFBooleanGetTypeID();
}

} // namespace vistrel::cocoa::native
