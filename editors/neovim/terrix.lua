-- TERRIX files in Neovim (0.7 and later): a filetype of their own, and
-- `terrix lsp` as their language server through Neovim's built-in client.
-- Put this in your init.lua, or `:luafile` it. `terrix` must be on PATH.
--
-- init_options.units names the units of the files' values ("kN m"); left
-- empty, each profile's units are deduced from its GAMMAW and ATMPRS.

vim.api.nvim_create_autocmd({ 'BufRead', 'BufNewFile' }, { pattern = '*.terrix', command = 'setfiletype terrix' })

local client_id
vim.api.nvim_create_autocmd('FileType', {
  pattern = 'terrix',
  callback = function(args)
    if not client_id or vim.lsp.client_is_stopped(client_id) then
      client_id = vim.lsp.start_client({
        name = 'terrix',
        cmd = { 'terrix', 'lsp' },
        init_options = { units = '' },
      })
    end
    vim.lsp.buf_attach_client(args.buf, client_id)
  end,
})
