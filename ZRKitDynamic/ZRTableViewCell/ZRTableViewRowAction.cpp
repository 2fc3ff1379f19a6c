#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowAction.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

namespace zr {

const KeyTable& ZRTableViewRowAction::keyTable() const {
    static const KeyTable table(
        NSObject::keyTable(),
        {key<&ZRTableViewRowAction::title, &ZRTableViewRowAction::setTitle>("title"),
         key<&ZRTableViewRowAction::backgroundColor, &ZRTableViewRowAction::setBackgroundColor>("backgroundColor"),
         key<&ZRTableViewRowAction::buttonWidth, &ZRTableViewRowAction::setButtonWidth>("buttonWidth")});
    return table;
}

} // namespace zr
