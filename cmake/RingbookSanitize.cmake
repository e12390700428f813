# AddressSanitizer and UBSan for every target of this build (the `asan` preset).
if(RINGBOOK_SANITIZE)
  set(_rb_san -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_compile_options(${_rb_san})
  add_link_options(${_rb_san})
endif()
