// Another part of the same client: what the headers define has to be defined only once.
#include <atr/plural.h>

atr_String secondPart() { return atr::plural("%d part", "%d parts", 2); }
