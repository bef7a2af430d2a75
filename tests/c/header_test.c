/* Compiles the public headers as strict C99 and calls through them from C. */
#include <stddef.h>
#include <string.h>

#include "vekcore.h"
#include "veks.h"

int main(void) {
  const VekVersionRecord* v = veksGetLibVersion();
  if (v == NULL || v->major != 9 || strcmp(v->targetCpu, "k0") != 0) return 1;
  Vek64fc* p = veksMalloc_64fc(4);
  if (p == NULL) return 2;
  const Vek64fc val = {1.5, -2.0};
  if (veksSet_64fc(val, p, 4) != vekStatusOk || p[3].re != 1.5 || p[3].im != -2.0) return 3;
  if (veksZero_64fc(p, 0) != vekStatusBadSize) return 4;
  if (veksCopy_64fc(NULL, p, 0) != vekStatusNullPtr) return 5;
  veksFree(p);
  return sizeof(VekVersionRecord) == 48 ? 0 : 6;
}
