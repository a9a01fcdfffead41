/* Sizes of the host's blocks, measured by a compiler of C. */
#ifndef TESTS_DLL_BLOCK_SIZES_H
#define TESTS_DLL_BLOCK_SIZES_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct BlockSize {
    const char *name;
    unsigned seen;
    unsigned wanted;
} BlockSize;

extern const BlockSize block_sizes[];
extern const int block_total;

#ifdef __cplusplus
}
#endif

#endif
