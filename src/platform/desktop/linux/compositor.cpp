#include "platform/desktop/linux/compositor.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace orvane {
namespace {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeReply>;

// A compositing manager owns the selection of this name for the first screen.
constexpr std::string_view kManagerSelection = "_NET_WM_CM_S0";

}  // namespace

bool DesktopComposes() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return false;
  xcb_connection_t* connection = x11->connection();
  const ReplyPtr<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 0, kManagerSelection.size(), kManagerSelection.data()), nullptr));
  if (!atom) return false;
  const ReplyPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
  return owner && owner->owner != XCB_NONE;
}

}  // namespace orvane
