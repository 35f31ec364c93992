#include "host/system/Session.h"

namespace host {

Session& session() {
  static Session instance;
  return instance;
}

}  // namespace host
