/* Keeps the pointer of a virtual screen still while the tests move Wine's.
 *
 * Wine moves the X server's pointer along with its own. The server reports that move to the window under the
 * pointer, but the process of that window may read the report late, after the test has moved the pointer again:
 * Wine then moves its pointer back to the older position. Preloaded into Wine, this library hides the moves from
 * the X server. Wine queries the X server for the position, so the last one is shared by all processes of the
 * screen, in the file that PAGEWICK_POINTER names.
 *
 * A window that appears under the X server's pointer would report the position of that pointer, so the pointer
 * must rest where no window appears. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <stdatomic.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

/* Declares the few names of Xlib that are used, so that its headers need not be installed. */
typedef struct _XDisplay Display;
typedef unsigned long XID;
enum { none = 0, grab_success = 0 };

/* Both coordinates in one atomic number, so that no process reads the x of one move and the y of another. */
static _Atomic uint64_t *place(void)
{
    static _Atomic(_Atomic uint64_t *) shared;
    _Atomic uint64_t *known = atomic_load(&shared);
    if (known)
        return known;
    const char *name = getenv("PAGEWICK_POINTER");
    const int file = name ? open(name, O_RDWR | O_CREAT | O_CLOEXEC, 0600) : -1;
    if (file < 0)
        return NULL;
    void *memory = MAP_FAILED;
    if (ftruncate(file, sizeof(*known)) == 0)
        memory = mmap(NULL, sizeof(*known), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    if (memory == MAP_FAILED)
        return NULL;
    atomic_store(&shared, memory);
    return memory;
}

#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

int XWarpPointer(Display *display, XID from, XID to, int from_x, int from_y, unsigned width, unsigned height, int x, int y)
{
    _Atomic uint64_t *shared = place();
    if (!shared || to == none)
        return NEXT(XWarpPointer)(display, from, to, from_x, from_y, width, height, x, y);
    atomic_store(shared, (uint64_t)(uint32_t)x << 32 | (uint32_t)y);
    return 1;
}

int XQueryPointer(Display *display, XID window, XID *root, XID *child, int *root_x, int *root_y, int *x, int *y, unsigned *mask)
{
    const int answer = NEXT(XQueryPointer)(display, window, root, child, root_x, root_y, x, y, mask);
    _Atomic uint64_t *shared = place();
    if (!answer || !shared)
        return answer;
    const uint64_t now = atomic_load(shared);
    const int now_x = (int)(uint32_t)(now >> 32), now_y = (int)(uint32_t)now;
    *x += now_x - *root_x;
    *y += now_y - *root_y;
    *root_x = now_x;
    *root_y = now_y;
    return answer;
}

/* A grab would move the X server's pointer into its window. */
int XGrabPointer(Display *display, XID window, int owner_events, unsigned mask, int pointer_mode, int keyboard_mode, XID confine_to,
                 XID cursor, unsigned long time)
{
    if (!place())
        return NEXT(XGrabPointer)(display, window, owner_events, mask, pointer_mode, keyboard_mode, confine_to, cursor, time);
    return grab_success;
}
