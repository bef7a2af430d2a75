/* A tour of veks: allocate vectors, fill, copy, reverse, find the tones in a signal with the
 * real FFT, and report the library's version and status strings. Build it against an installed veks
 * with cc demo.c $(pkg-config --cflags --libs veks) -lm
 */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#include "veks.h"

static void print_32f(const char* what, const Vek32f* v, int n) {
  printf("%-26s", what);
  for (int i = 0; i < n; ++i) printf(" %5.1f", v[i]);
  printf("\n");
}

static int check(VekStatus st, const char* call) {
  if (st != vekStatusOk) printf("%s -> %d (%s)\n", call, st, vekGetStatusString(st));
  return st != vekStatusOk;
}

int main(void) {
  const VekVersionRecord* v = veksGetLibVersion();
  printf("%s %s, built %s, target %s (%d.%d.%d.%d)\n", v->name, v->version, v->buildDate,
         v->targetCpu, v->major, v->minor, v->majorBuild, v->build);
  int threads = 0, cache = 0;
  vekGetNumThreads(&threads);
  if (vekGetMaxCacheSizeB(&cache) == vekStatusOk)
    printf("threads for threaded operations: %d, largest cache: %d KiB\n", threads, cache / 1024);

  enum { N = 8 };
  Vek32f* a = veksMalloc_32f(N);
  Vek32f* b = veksMalloc_32f(N);
  if (!a || !b) return 1;
  int bad = 0;
  bad |= check(veksZero_32f(a, N), "veksZero_32f");
  print_32f("zeroed:", a, N);
  bad |= check(veksSet_32f(2.5f, a, N / 2), "veksSet_32f");
  print_32f("first half set to 2.5:", a, N);
  for (int i = 0; i < N; ++i) a[i] = (Vek32f)i;
  bad |= check(veksCopy_32f(a, b, N), "veksCopy_32f");
  print_32f("copied 0..7:", b, N);
  bad |= check(veksFlip_32f_I(b, N), "veksFlip_32f_I");
  print_32f("reversed in place:", b, N);
  bad |= check(veksMove_32f(b, b + 2, N - 2), "veksMove_32f");
  print_32f("moved up by two:", b, N);

  Vek16sc c[3];
  const Vek16sc val = {3, -4};
  bad |= check(veksSet_16sc(val, c, 3), "veksSet_16sc");
  printf("%-26s (%d,%d) (%d,%d) (%d,%d)\n", "complex set:", c[0].re, c[0].im, c[1].re, c[1].im,
         c[2].re, c[2].im);

  Vek32u w = 0x11223344u;
  bad |= check(veksSwapBytes_32u_I(&w, 1), "veksSwapBytes_32u_I");
  printf("%-26s 0x11223344 -> 0x%08X\n", "byte order reversed:", w);

  /* The spectrum of 1024 samples holding tones at bins 50 and 200: GetSize, Init in caller
   * memory, then any number of transforms with a work buffer of the reported size. */
  enum { ORDER = 10, LEN = 1 << ORDER };
  int specSize = 0, initSize = 0, workSize = 0;
  bad |= check(
      veksFFTGetSize_R_32f(ORDER, VEK_FFT_NORM_INV_N, vekHintNone, &specSize, &initSize, &workSize),
      "veksFFTGetSize_R_32f");
  Vek8u* specMem = veksMalloc_8u(specSize);
  Vek8u* work = veksMalloc_8u(workSize > 0 ? workSize : 1);
  Vek32f* sig = veksMalloc_32f(LEN);
  Vek32f* spec = veksMalloc_32f(LEN + 2);
  VeksFFTSpec_R_32f* fft = NULL;
  if (!specMem || !work || !sig || !spec) return 1;
  bad |= check(veksFFTInit_R_32f(&fft, ORDER, VEK_FFT_NORM_INV_N, vekHintNone, specMem, NULL),
               "veksFFTInit_R_32f");
  for (int i = 0; i < LEN; ++i)
    sig[i] = (Vek32f)(sin(6.283185307179586 * 50 * i / LEN) +
                      0.5 * cos(6.283185307179586 * 200 * i / LEN));
  bad |= check(veksFFTFwd_RToCCS_32f(sig, spec, fft, work), "veksFFTFwd_RToCCS_32f");
  printf("%-26s", "spectral peaks (bin: |X|):");
  for (int k = 0; k <= LEN / 2; ++k) {
    const double m = hypot(spec[2 * k], spec[2 * k + 1]);
    if (m > 1.0) printf(" %d: %.1f", k, m);
  }
  printf("\n");
  bad |= check(veksFFTInv_CCSToR_32f(spec, spec, fft, work), "veksFFTInv_CCSToR_32f");
  double worst = 0;
  for (int i = 0; i < LEN; ++i) worst = fmax(worst, fabs(spec[i] - sig[i]));
  printf("%-26s %.2g\n", "inverse, largest error:", worst);
  veksFree(specMem);
  veksFree(work);
  veksFree(sig);
  veksFree(spec);

  /* Errors are returned, never raised; nothing is written on an error. */
  printf("veksCopy_32f(NULL, b, 8) -> %s\n", vekGetStatusString(veksCopy_32f(NULL, b, N)));
  printf("veksZero_32f(b, 0)       -> %s\n", vekGetStatusString(veksZero_32f(b, 0)));
  printf("veksMalloc_32f(0)        -> %p\n", (void*)veksMalloc_32f(0));

  veksFree(a);
  veksFree(b);
  return bad;
}
