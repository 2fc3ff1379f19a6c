#include <ZRPlatform/Foundation/NSIndexPath.h>

namespace zr {

NSString NSIndexPath::description() const {
    return isNil() ? NSString("nil") : NSString::stringWithFormat("{%td, %td}", m_section, m_row);
}

} // namespace zr
