#include "tool/Words.h"
namespace vistrel::tool {
int doctor(const DoctorOptions&, const std::string&) { return 0; }
}
