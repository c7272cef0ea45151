-- Drives one Neovim by keys from another one: the inner edits a form with its own client of the
-- language server, as a person does. Ends with 1 and a line on the standard error at the first
-- thing that is not as it should be.
local form, folder = vim.env.ZORVA_FORM, vim.env.ZORVA_FOLDER
local patience = 30000

local editor = vim.fn.jobstart(
  { 'nvim', '--embed', '--headless', '-u', 'NONE', '-i', 'NONE', '-n' }, { rpc = true })

local function lua(code, ...)
  return vim.rpcrequest(editor, 'nvim_exec_lua', code, { ... })
end

local function keys(text)
  vim.rpcrequest(editor, 'nvim_input', text)
end

local function lines()
  return table.concat(lua('return vim.api.nvim_buf_get_lines(0, 0, -1, false)'), '\n')
end

local function current_line()
  return lua('return vim.api.nvim_get_current_line()')
end

local function fail(message)
  io.stderr:write(message, '\n')
  vim.fn.jobstop(editor)
  vim.cmd('cquit 1')
end

-- Waits until `condition` holds; says what was waited for if it never does.
local function expect(what, condition)
  if not vim.wait(patience, condition, 30) then
    local state = pcall(current_line) and (lua('return vim.api.nvim_get_mode().mode') .. ': ' .. current_line()) or 'no answer'
    fail('not seen: ' .. what .. '\n' .. state .. '\n' .. (pcall(lua, 'return 1') and lua("return vim.fn.execute('messages')") or ''))
  end
end

local function expect_text(what, text)
  expect(what, function() return lines():find(text, 1, true) ~= nil end)
end

local function diagnostics()
  return lua([[
    local found = {}
    for _, diagnostic in ipairs(vim.diagnostic.get(0)) do
      table.insert(found, { line = diagnostic.lnum, message = diagnostic.message, severity = diagnostic.severity })
    end
    return found]])
end

-- Puts the cursor on the first occurrence of a text, `offset` letters behind its begin.
local function go_to(text, offset)
  lua([[
    local text, offset = ...
    for number, line in ipairs(vim.api.nvim_buf_get_lines(0, 0, -1, false)) do
      local column = line:find(text, 1, true)
      if column then
        vim.api.nvim_win_set_cursor(0, { number, column - 1 + offset })
        return
      end
    end
    error('nowhere: ' .. text)]], text, offset or 0)
end

local function offered()
  return lua([[
    local words = {}
    for _, item in ipairs(vim.fn.complete_info({ 'items' }).items) do
      words[item.word] = true
    end
    words.count = #vim.fn.complete_info({ 'items' }).items
    return words]])
end

local function complete(what)
  keys('<C-x><C-o>')
  expect(what, function() return lua('return vim.fn.pumvisible()') == 1 end)
  return offered()
end

local function is_as_it_was()
  return lines() == table.concat(vim.fn.readfile(form), '\n')
end

local function as_it_was()
  expect('the end of typing', function() return lua('return vim.api.nvim_get_mode().mode') == 'n' end)
  lua([[vim.cmd('silent undo 0')]])
  expect('the form as it was', is_as_it_was)
end

-- The settings as the page about editors tells them.
local function settings()
  local block, inside = {}, false
  for _, line in ipairs(vim.fn.readfile(vim.env.ZORVA_PAGE)) do
    if line == '```' then
      inside = false
    end
    if inside then
      table.insert(block, line)
    end
    inside = inside or line == '```lua'
  end
  return table.concat(block, '\n')
end

-- A form of one's own, with the server at its side.
local file = folder .. '/form.zorva'
vim.fn.writefile(vim.fn.readfile(form), file)
lua(settings())
lua([[
  vim.cmd('edit ' .. ...)
  vim.o.completeopt = 'menuone'
  vim.ui.select = function(items, _, choose) choose(items[1], 1) end]], file)
expect('the server is there', function()
  return lua('local client = vim.lsp.get_active_clients()[1] return client ~= nil and client.initialized == true')
end)

-- A mistake is seen while it is typed, and gone when it is undone.
go_to('class="CheckBox"', 12)
keys('rb')
expect('the finding about a class', function()
  local found = diagnostics()
  return #found > 0 and found[1].message:find('there is no class `Checkbox`', 1, true) ~= nil and found[1].severity == 1
end)
keys('u')
expect('no findings', function() return #diagnostics() == 0 end)

-- The class of a new row, and then the properties that it has.
go_to('<Widget name="squelch" class', 0)
keys('O<lt>Widget name="extra" class="Sp')
local words = complete('classes')
if not (words.SpinBox and words.SpinBoxList) or words.ComboBox or words.labelText then
  fail('other classes offered than those that begin so: ' .. vim.inspect(words))
end
keys('<C-y>')
expect('a class is inserted', function() return current_line():find('class="SpinBox', 1, true) ~= nil end)
keys('"><CR><lt>Property name="')
words = complete('properties')
if not (words.minimum and words.singleStep and words.labelText) or words.enumName or words.checked then
  fail('other properties offered than those of a spin box: ' .. vim.inspect(words))
end
keys('<C-e>singleS')
complete('one property')
keys('<C-y>')
expect('a property is inserted', function() return current_line():find('name="singleStep', 1, true) ~= nil end)
keys('"><lt>')
words = complete('types')
if not (words.Int and words.String) or words.Widget then
  fail('other types offered than there are: ' .. vim.inspect(words))
end
keys('<C-e><Esc>')
as_it_was()
-- From a row to its enumeration.
go_to('<String>Demodulations</String>', 12)
lua('vim.lsp.buf.definition()')
expect('the enumeration', function() return current_line():find('<Enum name="Demodulations">', 1, true) ~= nil end)

-- Another name for a row, in the description and in the script.
go_to('name="volume"', 7)
lua("vim.lsp.buf.rename('loudness')")
expect_text('the row', '<Widget name="loudness" class="SpinBox">')
expect_text('the script', 'loudness.setEnabled(source != AudioSources.AUDIO_NONE)')
if lines():find('volume.', 1, true) then
  fail('the script still knows the old name')
end
if not lines():find('<String>Audio/Volume</String>', 1, true) then
  fail('the path has changed')
end
as_it_was()

-- A misspelt property.
go_to('<Property name="labelText">', 21)
keys('rt')
expect('the finding about a property', function()
  for _, found in ipairs(diagnostics()) do
    if found.message:find('no property `labeltext`', 1, true) then
      return true
    end
  end
  return false
end)
lua([[vim.lsp.buf.code_action()]])
expect('the property', function() return current_line():find('name="labelText"', 1, true) ~= nil end)
expect('no findings any more', function() return #diagnostics() == 0 end)

-- Help, and layout.
go_to('class="FrequencyEdit"', 8)
lua([[vim.lsp.handlers['textDocument/hover'] = function(_, result) told = result.contents.value end
  vim.lsp.buf.hover()]])
expect('help', function() return lua("return told or ''"):find('FrequencyEdit', 1, true) ~= nil end)
go_to('<Property name="MainFreqEdit">', 0)
keys('0d^')
expect('a line out of place', function() return current_line():sub(1, 1) == '<' end)
lua('vim.lsp.buf.formatting_sync(nil, 20000)')
expect('the form as it was before', is_as_it_was)

-- The end: the server goes when its editor goes.
local server = lua('return vim.lsp.get_active_clients()[1].rpc.pid')
pcall(vim.rpcnotify, editor, 'nvim_command', 'qall!')
if vim.fn.jobwait({ editor }, patience)[1] ~= 0 then
  fail('the editor does not end')
end
expect('the end of the server', function() return vim.fn.isdirectory('/proc/' .. server) == 0 end)
vim.cmd('qall!')
