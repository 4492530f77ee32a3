-- links.lua: what stands in docs/ as Markdown, as pages in one folder.
--
-- A chapter is linked by its file, docs/guide/tour.md or docs/files.md: here it is a page beside the others. Pictures
-- stand in docs/pictures/ there, in pictures/ here. The first heading is the title of the page, and is left out of its
-- list of contents.

local function page_of(target)
  if target:match("^%a+:") then return target end
  local name, place = target:match("([^/#]+)%.md(#?.*)$")
  if not name then return target end
  return (name == "README" and "index" or name) .. ".html" .. place
end

function Link(link)
  link.target = page_of(link.target)
  return link
end

function Image(image)
  image.src = image.src:gsub("^%.%./pictures/", "pictures/")
  return image
end

-- A wide table is moved sideways in a frame of its own, not with the whole page.
function Table(tbl)
  return pandoc.Div({ tbl }, pandoc.Attr("", { "table" }))
end

function Pandoc(doc)
  for i, block in ipairs(doc.blocks) do
    if block.t == "Header" and block.level == 1 then
      doc.meta.pagetitle = pandoc.utils.stringify(block)
      doc.blocks[i] = pandoc.RawBlock("html", "<h1>" .. doc.meta.pagetitle .. "</h1>")
      break
    end
  end
  return doc
end
