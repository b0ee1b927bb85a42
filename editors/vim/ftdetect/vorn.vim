autocmd BufNewFile,BufRead *.vorn setfiletype vorn
