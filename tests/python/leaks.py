"""What tests that look for lost memory share."""
import gc


def under_address_sanitizer():
    """The sanitizer holds freed memory back, so that the process grows whatever the code does."""
    with open("/proc/self/maps") as maps:
        return "libasan" in maps.read()


def resident_kilobytes():
    with open("/proc/self/statm") as statm:
        return int(statm.read().split()[1]) * 4


def growth(work, warm_up, rounds):
    """By how many kilobytes the process grows in `rounds` of work(n), after a first work(warm_up)."""
    work(warm_up)
    gc.collect()
    before = resident_kilobytes()
    work(rounds)
    gc.collect()
    return resident_kilobytes() - before
