// Kinds of objects that have security descriptors.
#ifndef SIMULATOR_INCLUDE_ACCCTRL_H_
#define SIMULATOR_INCLUDE_ACCCTRL_H_

enum SE_OBJECT_TYPE {
  SE_UNKNOWN_OBJECT_TYPE = 0,
  SE_FILE_OBJECT,
};

#endif  // SIMULATOR_INCLUDE_ACCCTRL_H_
