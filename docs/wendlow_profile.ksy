meta:
  id: wendlow_profile
  title: Profile of Wendlow
  file-extension: txt
  endian: le
doc: |
  A layout of program windows and folder windows, as Wendlow saves it. profile-format.md beside this file tells what each
  field means, what writers write and what readers take; this description takes what Wendlow loads and refuses what it
  refuses.
seq:
  - id: num_windows
    type: u4
    valid:
      expr: _ >= 1 and signature.length == 3
  - id: kinds
    type: u1
    enum: kind
    repeat: expr
    repeat-expr: num_windows
  - id: x
    type: s4
    repeat: expr
    repeat-expr: num_windows
    doc: Left edges in pixels of the screen.
  - id: y
    type: s4
    repeat: expr
    repeat-expr: num_windows
    doc: Top edges in pixels of the screen.
  - id: widths
    type: s4
    repeat: expr
    repeat-expr: num_windows
    doc: In pixels; 0 for a window that was minimised.
  - id: heights
    type: s4
    repeat: expr
    repeat-expr: num_windows
    doc: In pixels; 0 for a window that was minimised.
  - id: path_lengths
    type: u4
    repeat: expr
    repeat-expr: num_windows
    doc: In bytes, the terminators not counted.
  - id: paths
    type: path(path_lengths[_index])
    repeat: expr
    repeat-expr: num_windows
  - id: after_paths
    size-eos: true
    doc: |
      The zero tail, as many zero bytes as all paths have without their terminators; the name; the signature. Where the
      name begins is found from the end.
instances:
  signature:
    pos: _io.size - 3
    contents: [0x00, 0x07, 0x0c]
  name_steps:
    pos: 0
    type: name_step(_index)
    repeat: until
    repeat-until: _.is_zero or _.position < 3
    doc: The way back from the signature to the zero unit before the name.
  has_name:
    value: name_steps.last.is_zero
    doc: False when no zero unit was met before offset 0.
  ofs_name:
    value: name_steps.last.position + 2
  name:
    pos: ofs_name
    size: _io.size - 3 - ofs_name
    type: str
    encoding: UTF-16LE
    if: has_name
types:
  path:
    params:
      - id: len
        type: u4
    seq:
      - id: bytes
        size: len
        doc: UTF-16, low byte first; the last byte of an odd length is half a unit.
      - id: terminator
        type: u2
        doc: Zero, but not looked at by readers.
    instances:
      text:
        value: bytes.to_s("UTF-16LE")
  name_step:
    params:
      - id: index
        type: u4
    instances:
      position:
        value: _root._io.size - 5 - 2 * index
      unit:
        io: _root._io
        pos: position
        type: u2
      is_zero:
        value: unit == 0
enums:
  kind:
    0: folder
    1: program
