"""What a program lacks of the protections that the distributions advise."""

import elf

FUNCTION, GLOBAL, WEAK = 2, 1, 2
ENDBR64 = b"\xf3\x0f\x1e\xfa"
STACK_PROBE = b"\x48\x83\x0c\x24\x00"  # orq $0, (%rsp)


def not_position_independent(program):
    return program.type != 3 or not program.dynamic.get(elf.DT_FLAGS_1, 0) & elf.DF_1_PIE


def relocations_stay_writable(program):
    return not program.with_type(elf.PT_GNU_RELRO)


def binds_lazily(program):
    return not (program.dynamic.get(elf.DT_FLAGS, 0) & elf.DF_BIND_NOW or elf.DT_BIND_NOW in program.dynamic or
                program.dynamic.get(elf.DT_FLAGS_1, 0) & elf.DF_1_NOW)


def stack_is_executable(program):
    stacks = program.with_type(elf.PT_GNU_STACK)
    return not stacks or stacks[0]["flags"] & elf.PF_EXECUTE


def writable_code(program):
    both = elf.PF_EXECUTE | elf.PF_WRITE
    return any(segment["flags"] & both == both for segment in program.with_type(elf.PT_LOAD))


def relocations_in_code(program):
    return elf.DT_TEXTREL in program.dynamic or program.dynamic.get(elf.DT_FLAGS, 0) & elf.DF_TEXTREL


def looks_for_libraries_elsewhere(program):
    return elf.DT_RPATH in program.dynamic or elf.DT_RUNPATH in program.dynamic


def code_mixed_with_data(program):
    """An executable segment holds more than code: constants, headers, or a page shared with them."""
    for segment in program.with_type(elf.PT_LOAD):
        if not segment["flags"] & elf.PF_EXECUTE:
            continue
        if segment["offset"] % 4096 or any(
                section["offset"] < segment["offset"] + segment["size"] and
                section["offset"] + section["size"] > segment["offset"] and
                not section["flags"] & elf.SHF_EXECUTE and section["type"] not in (0, 8)
                for section in program.sections):
            return True
    return False


def imports(program):
    return {name for name, _, _, section, _ in program.symbols(elf.SHT_DYNSYM) if section == 0}


def stack_unguarded(program):
    return "__stack_chk_fail" not in imports(program)


def calls_unchecked(program):
    return not any(name.startswith("__") and name.endswith("_chk") for name in imports(program))


def accesses_unchecked(program):
    return not any("__glibcxx_assert_fail" in name for name in imports(program))


def stack_may_be_jumped_over(program):
    return program.machine == elf.X86_64 and STACK_PROBE not in program.bytes_of(".text")


def functions_of(program, part):
    """Where the program's own functions with this in their name begin that others may call."""
    return [(name, section, address) for name, kind, binding, section, address in program.symbols(elf.SHT_SYMTAB)
            if kind == FUNCTION and binding in (GLOBAL, WEAK) and section != 0 and part in name]


def branches_unmarked(program, part):
    """Whether functions lack the mark of a place that indirect branches may reach. Only x86 is looked at."""
    if program.machine != elf.X86_64:
        return False
    functions = functions_of(program, part)
    return not functions or any(program.at(section, address, 4) != ENDBR64 for _, section, address in functions)


def lacking(program, part):
    """The names of all protections that the program lacks; `part` is what its own functions have in their name."""
    checks = [not_position_independent, relocations_stay_writable, binds_lazily, stack_is_executable, writable_code,
              relocations_in_code, looks_for_libraries_elsewhere, code_mixed_with_data, stack_unguarded,
              calls_unchecked, accesses_unchecked, stack_may_be_jumped_over]
    found = {check.__name__ for check in checks if check(program)}
    return found | ({"branches_unmarked"} if branches_unmarked(program, part) else set())
