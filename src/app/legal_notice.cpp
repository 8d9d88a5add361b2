namespace {

/// Goes with every copy of the executable and is printed by nothing; the linker would drop what nothing refers to.
[[gnu::used, gnu::retain]] constexpr char legalNotice[] =
    "This program belongs to its maker and is handed out under a licence agreement.\n"
    "Copyright 2024-2026. All rights that the agreement does not give are reserved.\n"
    "Notice to public authorities: the rights of a government and of its agencies in this program\n"
    "are those of the agreement under which they received it, and no others.\n"
    "VUR\n";

}  // namespace
