"""Ways in which a file can be damaged. Most take the bytes and a source of chance and give other bytes."""

import os
import shutil

PAGE = 4096


def flip_bit(data, random):
    damaged = bytearray(data)
    place = random.randrange(len(damaged))
    damaged[place] ^= 1 << random.randrange(8)
    return bytes(damaged)


def change_bytes(data, random):
    damaged = bytearray(data)
    place = random.randrange(len(damaged))
    for offset in range(place, min(place + random.randrange(1, 40), len(damaged))):
        damaged[offset] = random.randrange(256)
    return bytes(damaged)


def zero_page(data, random):
    page = random.randrange(len(data) // PAGE) * PAGE
    return data[:page] + bytes(PAGE) + data[page + PAGE:]


def swap_pages(data, random):
    first, second = sorted(random.sample(range(len(data) // PAGE), 2))
    pages = [data[start:start + PAGE] for start in range(0, len(data), PAGE)]
    pages[first], pages[second] = pages[second], pages[first]
    return b"".join(pages)


def truncate(data, random):
    return data[:random.randrange(len(data))]


def append_garbage(data, random):
    return data + random.randbytes(random.randrange(1, 10000))


def foreign(data, random):
    kinds = [b"Dear diary,\n" * 500, b"\x89PNG\r\n\x1a\n" + random.randbytes(3000), random.randbytes(8192),
             b"SQLite format 3\0" + random.randbytes(8176), data[:100] + random.randbytes(len(data) - 100)]
    return random.choice(kinds)


def cut_line(data, random):
    lines = data.splitlines(keepends=True)
    del lines[random.randrange(len(lines))]
    return b"".join(lines)


def empty(_data, _random):
    return b""


# What may stand in a file's place. Each takes the path, where nothing is any more, and another file.
def nothing(_path, _other):
    pass


def folder(path, _other):
    path.mkdir()


def link(path, other):
    path.symlink_to(other)


def link_to_nothing(path, _other):
    path.symlink_to(path.with_name("nowhere"))


def pipe(path, _other):
    os.mkfifo(path)


def other_file(path, other):
    shutil.copy(other, path)


PLACES = [nothing, folder, link, link_to_nothing, pipe, other_file]
TEXT_DAMAGES = [flip_bit, flip_bit, flip_bit, change_bytes, truncate, append_garbage, cut_line, empty]
DAMAGES = [flip_bit, flip_bit, flip_bit, change_bytes, zero_page, swap_pages, truncate, append_garbage, foreign]
