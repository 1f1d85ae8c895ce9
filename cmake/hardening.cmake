# wendlow_hardening: how the programs are protected from what gets into their memory or beside their files.
add_library(wendlow_hardening INTERFACE)
if(MSVC)
  # The libraries that an image names are looked for in Windows' own folder only (0x800).
  target_compile_options(wendlow_hardening INTERFACE /guard:cf)
  target_link_options(wendlow_hardening INTERFACE
    /guard:cf /CETCOMPAT /DEPENDENTLOADFLAG:0x800 /HIGHENTROPYVA /DYNAMICBASE /NXCOMPAT
    # A PDB beside each program; without the other three it would be linked less small for it.
    /DEBUG /OPT:REF /OPT:ICF /INCREMENTAL:NO)
elseif(MINGW)
  target_link_options(wendlow_hardening INTERFACE
    -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
endif()
