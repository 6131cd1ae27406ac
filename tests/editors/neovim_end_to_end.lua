-- Neovim as an engineer runs it, headless: the snippet of editors/neovim
-- starts `terrix lsp` for a TERRIX file; a file with a finding is opened,
-- and Neovim's own client must show its diagnostic and a hover.
-- Run: PATH=<dir of terrix>:$PATH TERRIX_FILE=F nvim --headless -u NONE -c 'luafile THIS'

local function finish(failure)
  if failure then
    io.stderr:write('neovim_end_to_end: ' .. failure .. '\n')
    vim.cmd('cquit 1')
  end
  io.stdout:write('neovim_end_to_end: 1 passed, 0 failed\n')
  vim.cmd('qall!')
end

local ok, failure = pcall(function()
  vim.cmd('filetype on')
  dofile(os.getenv('TERRIX_SNIPPET'))
  vim.cmd('edit ' .. vim.fn.fnameescape(os.getenv('TERRIX_FILE')))
  local buffer = vim.api.nvim_get_current_buf()
  assert(vim.bo[buffer].filetype == 'terrix', 'the file is not of filetype terrix')

  assert(vim.wait(30000, function() return #vim.diagnostic.get(buffer) > 0 end, 50), 'no diagnostics within 30 s')
  local diagnostics = vim.diagnostic.get(buffer)
  assert(#diagnostics == 1, 'diagnostics: ' .. vim.inspect(diagnostics))
  local diagnostic = diagnostics[1]
  assert(diagnostic.message == 'NUMLAY is 9 but the layer divisions cover 10 layers', diagnostic.message)
  assert(diagnostic.lnum == 9 and diagnostic.col == 0 and diagnostic.end_lnum == 9 and diagnostic.end_col == 40,
         'range: ' .. vim.inspect(diagnostic))
  assert(diagnostic.severity == vim.diagnostic.severity.ERROR, 'severity ' .. tostring(diagnostic.severity))
  assert(diagnostic.source == 'terrix', 'source ' .. tostring(diagnostic.source))

  local answers = vim.lsp.buf_request_sync(buffer, 'textDocument/hover',
    { textDocument = { uri = vim.uri_from_bufnr(buffer) }, position = { line = 9, character = 9 } }, 30000)
  assert(answers, 'no hover within 30 s')
  local hover
  for _, answer in pairs(answers) do hover = answer.result end
  assert(hover and hover.contents.value:find('parameter `NUMLAY`', 1, true), 'hover: ' .. vim.inspect(answers))
  assert(hover.contents.value:find('NUMBER OF SOIL LAYERS', 1, true), 'hover: ' .. hover.contents.value)
end)
finish(not ok and tostring(failure) or nil)
