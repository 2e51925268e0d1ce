#include "maintenance/service_file_command.h"

namespace morvane::maintenance {

void ServiceFileCommand::CreateServiceFile() {}

}  // namespace morvane::maintenance
