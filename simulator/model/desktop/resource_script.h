// The program's own resources, as its sources state them.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_SCRIPT_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_SCRIPT_H_

namespace simulator {

extern const char kResourceScript[];  // the resource script (.rc), UTF-8
extern const char kResourceNames[];   // the header with the numbers of its names

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_SCRIPT_H_
