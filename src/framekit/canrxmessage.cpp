#include "canrxmessage.h"

#include <type_traits>

namespace CAN {

static_assert(std::is_trivially_copyable<CanRxMessage>::value, "records are copied as bytes");

CanRxMessage::CanRxMessage()
    : seconds(0), microseconds(0), id(0), length(0), data{}, remote(false), extended(false),
      fdFrame(false), flagB(false), flagC(false), flagD(false), transmitted(false),
      messageNumber(0), line(0)
{
}

} // namespace CAN
